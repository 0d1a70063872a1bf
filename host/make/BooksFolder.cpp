#include "host/make/BooksFolder.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ranges>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/make/Fail.h"

namespace fs = std::filesystem;

namespace host {
namespace {

[[noreturn]] void FailBySystem(const std::string& what) {
    Fail(what + ": " + std::strerror(errno));
}

void Sync(const fs::path& path) {
    const int handle = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool synced = handle >= 0 && ::fsync(handle) == 0;
    const int error = errno;
    if (handle >= 0) ::close(handle);
    errno = error;
    if (!synced) FailBySystem("cannot write " + path.string() + " to the disk");
}

[[noreturn]] void RefuseTaken(const fs::path& target) {
    Fail(target.string() + " stands there already; nothing was changed");
}

}  // namespace

BooksFolder::BooksFolder(fs::path folder, std::string file)
    : folder_(fs::absolute(std::move(folder)).lexically_normal()), file_(std::move(file)) {
    target_ = folder_ / file_;
    if (std::error_code ignored; fs::exists(fs::symlink_status(target_, ignored))) RefuseTaken(target_);
    try {
        MakeFolder();
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

void BooksFolder::MakeStaging() {
    std::string name = (folder_ / ".new-books-XXXXXX").string();
    if (!::mkdtemp(name.data())) FailBySystem("cannot write in the folder " + folder_.string());
    staging_ = name;
}

void BooksFolder::Publish() {
    const fs::path ready = staging_ / file_;
    Sync(ready);
    if (::renameat2(AT_FDCWD, ready.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) != 0) {
        if (errno == EEXIST) RefuseTaken(target_);
        // Some file systems move without the flag only.
        if (errno != EINVAL || ::rename(ready.c_str(), target_.c_str()) != 0)
            FailBySystem("cannot make " + target_.string());
    }
    Sync(folder_);
    for (const auto& path : made_) Sync(path.parent_path());
    made_.clear();
    Undo();
}

void BooksFolder::Undo() noexcept {
    std::error_code ignored;
    if (!staging_.empty()) fs::remove_all(staging_, ignored);
    for (const auto& path : made_ | std::views::reverse) fs::remove(path, ignored);
    staging_.clear();
    made_.clear();
}

}  // namespace host
