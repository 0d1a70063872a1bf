#include "platform/basic/Files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/basic/Error.h"

namespace fs = std::filesystem;

namespace basic {
namespace {

[[noreturn]] void FailBySystem(const std::string& what, int reason) {
    throw Error(error::InvalidCall, what + ": " + std::strerror(reason), "basic");
}

bool Stands(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

bool IsFree(const fs::path& file) {
    constexpr const char* companions[] = {"", "-wal", "-shm", "-journal"};
    return std::none_of(std::begin(companions), std::end(companions),
                        [&](const char* suffix) { return Stands(file.string() + suffix); });
}

std::string Moment() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[32];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%d-%H%M%S", &local);
    return {text, length};
}

}  // namespace

void SyncToDisk(const fs::path& path) {
    const int handle = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const int reason = handle >= 0 && ::fsync(handle) == 0 ? 0 : errno;
    if (handle >= 0) ::close(handle);
    if (reason != 0) FailBySystem("cannot write " + path.string() + " to the disk", reason);
}

bool RenameTo(const fs::path& from, const fs::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (const int reason = errno; reason == EEXIST)
        return false;
    else if (reason != EINVAL)
        FailBySystem("cannot make " + to.string(), reason);
    // Some file systems move without the flag only.
    if (Stands(to)) return false;
    RenameOver(from, to);
    return true;
}

void RenameOver(const fs::path& from, const fs::path& to) {
    if (::rename(from.c_str(), to.c_str()) != 0) FailBySystem("cannot make " + to.string(), errno);
}

fs::path DatedName(const fs::path& file) {
    const std::string stem = (file.parent_path() / file.stem()).string() + "-" + Moment();
    const std::string extension = file.extension().string();
    fs::path name = stem + extension;
    for (int more = 2; !IsFree(name); ++more) name = stem + "-" + std::to_string(more) + extension;
    return name;
}

void MakePrivate(const fs::path& file) {
    const int handle = ::open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    const int reason = handle >= 0 && ::fchmod(handle, S_IRUSR | S_IWUSR) == 0 ? 0 : errno;
    if (handle >= 0) ::close(handle);
    if (reason != 0) FailBySystem("cannot make " + file.string(), reason);
}

}  // namespace basic
