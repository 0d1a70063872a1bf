#include "host/make/BooksFolder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ranges>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/make/Fail.h"
#include "platform/basic/Files.h"

namespace fs = std::filesystem;

namespace host {
namespace {

[[noreturn]] void FailBySystem(const std::string& what) {
    Fail(what + ": " + std::strerror(errno));
}

constexpr const char* StagingPrefix = ".new-books-";

bool Stands(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

// Held until it is closed, by a kill at the latest; below 0 where another holds it.
int Lock(const fs::path& folder) {
    const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0 || ::flock(handle, LOCK_EX | LOCK_NB) == 0) return handle;
    const int reason = errno;
    ::close(handle);
    errno = reason;
    return -1;
}

[[noreturn]] void RefuseTaken(const fs::path& target) {
    Fail(target.string() + " stands there already; nothing was changed");
}

}  // namespace

BooksFolder::BooksFolder(fs::path folder, std::string file, Taken taken)
    : folder_(fs::absolute(std::move(folder)).lexically_normal()), file_(std::move(file)), taken_(taken) {
    target_ = folder_ / file_;
    if (taken_ == Taken::Refuse && Stands(target_)) RefuseTaken(target_);
    try {
        MakeFolder();
        SweepStagings();
        MakeStaging();
    } catch (...) {
        Undo();
        throw;
    }
}

BooksFolder::~BooksFolder() {
    Undo();
}

void BooksFolder::MakeFolder() {
    std::vector<fs::path> missing;
    std::error_code ignored;
    for (fs::path at = folder_; !fs::exists(at, ignored) && at.has_relative_path(); at = at.parent_path())
        if (at.has_filename()) missing.push_back(at);
    for (const auto& path : missing | std::views::reverse) {
        if (::mkdir(path.c_str(), 0777) != 0) FailBySystem("cannot make the folder " + path.string());
        made_.push_back(path);
    }
}

void BooksFolder::SweepStagings() const {
    std::error_code ignored;
    std::vector<fs::path> found;
    for (fs::directory_iterator at(folder_, ignored), end; at != end; at.increment(ignored))
        if (at->path().filename().string().starts_with(StagingPrefix)) found.push_back(at->path());
    for (const fs::path& staging : found) {
        const int lock = Lock(staging);
        if (lock < 0) continue;  // its maker lives
        fs::remove_all(staging, ignored);
        ::close(lock);
    }
}

void BooksFolder::MakeStaging() {
    do {
        std::string name = (folder_ / (StagingPrefix + std::string("XXXXXX"))).string();
        if (!::mkdtemp(name.data())) FailBySystem("cannot write in the folder " + folder_.string());
        staging_ = name;
        fs::permissions(staging_, fs::perms::owner_all);  // whatever the mask
        lock_ = Lock(staging_);
        // Another may sweep it away before it is locked; a file system without locks is never swept.
    } while ((lock_ < 0 && errno == EWOULDBLOCK) || !Stands(staging_));
}

void BooksFolder::Publish() {
    const fs::path ready = staging_ / file_;
    for (const char* suffix : {"-wal", "-journal"})
        if (Stands(ready.string() + suffix))
            Fail("the new " + file_ + " could not be closed: the disk did not take all of its log");
    basic::SyncToDisk(ready);
    MakeRoom();
    if (taken_ == Taken::SetAside)
        basic::RenameOver(ready, target_);
    else if (!basic::RenameTo(ready, target_))
        RefuseTaken(target_);
    basic::SyncToDisk(folder_);
    for (const auto& path : made_) basic::SyncToDisk(path.parent_path());
    made_.clear();
    Undo();
}

// The file first: with two names, or without one, it opens for nobody, and nobody takes its log for that of
// another. The first of its names stands until the new file takes it, where the file system knows second
// ones.
void BooksFolder::MakeRoom() {
    const fs::path dated = basic::DatedName(target_);
    for (const char* suffix : {"", "-journal", "-wal"}) {
        const std::string from = target_.string() + suffix, to = dated.string() + suffix;
        if (!Stands(from)) continue;
        if (*suffix == '\0' && taken_ == Taken::Refuse) RefuseTaken(target_);
        std::error_code noSecondNames = std::make_error_code(std::errc::not_supported);
        if (*suffix == '\0') fs::create_hard_link(from, to, noSecondNames);
        if (noSecondNames && !basic::RenameTo(from, to)) Fail(to + " stands there already");
        setAside_.emplace_back(to);
    }
    std::error_code ignored;
    fs::remove(target_.string() + "-shm", ignored);  // only an index, which the store makes anew
}

void BooksFolder::Undo() noexcept {
    std::error_code ignored;
    if (!staging_.empty()) fs::remove_all(staging_, ignored);
    if (lock_ >= 0) ::close(std::exchange(lock_, -1));
    for (const auto& path : made_ | std::views::reverse) fs::remove(path, ignored);
    staging_.clear();
    made_.clear();
}

}  // namespace host
