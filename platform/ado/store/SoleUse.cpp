#include "platform/ado/store/SoleUse.h"

#include <mutex>
#include <set>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ado {
namespace {

constexpr off_t FirstOpener = 128;  // the byte of the shared index that each who has the store open locks

std::mutex guard;

// A process's locks do not keep itself out, and closing any descriptor of a file drops all that it has there:
// so what this process has open is known from here, and its index is never touched.
std::multiset<FileId>& InUse() {
    static std::multiset<FileId> files;
    return files;
}

int OpenIndex(const std::string& path) {
    struct stat books {};
    if (::stat(path.c_str(), &books) != 0) return -1;
    const int handle =
        ::open((path + "-shm").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, books.st_mode & 0777);
    struct stat index {};
    if (handle < 0 || ::fstat(handle, &index) != 0 || index.st_size != 0) return handle;
    // Newly made, it must stay usable for all who may use the books, whatever this process's mask. Where it
    // is another's, that one has seen to it.
    [[maybe_unused]] const bool open =
        ::fchmod(handle, books.st_mode & 0777) == 0 &&
        (::geteuid() != 0 || ::fchown(handle, books.st_uid, books.st_gid) == 0);
    return handle;
}

}  // namespace

FileId IdOf(const std::string& path) {
    struct stat file {};
    return ::stat(path.c_str(), &file) == 0 ? FileId{file.st_dev, file.st_ino} : FileId{};
}

OwnUse::OwnUse(FileId file) : file_(file) {
    const std::lock_guard lock(guard);
    InUse().insert(file_);
}

OwnUse::~OwnUse() {
    const std::lock_guard lock(guard);
    InUse().erase(InUse().find(file_));
}

SoleUse::SoleUse(const std::string& path) {
    const std::lock_guard lock(guard);
    if (InUse().contains(IdOf(path))) return;
    const int handle = OpenIndex(path);
    if (handle < 0) return;
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    whole.l_start = FirstOpener;
    whole.l_len = 1;
    if (::fcntl(handle, F_OFD_SETLK, &whole) == 0)
        handle_ = handle;
    else
        ::close(handle);
}

SoleUse::~SoleUse() {
    if (handle_ >= 0) ::close(handle_);
}

}  // namespace ado
