#include "platform/basic/NewFile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <ios>
#include <string>

#include "platform/basic/Error.h"
#include "platform/basic/Files.h"

namespace fs = std::filesystem;

namespace basic {
namespace {

[[noreturn]] void FailToWrite(const std::string& name, int reason) {
    throw Error(error::InvalidCall, "cannot write " + name + ": " + std::strerror(reason), "basic");
}

}  // namespace

NewFile::NewFile(fs::path file) : file_(std::move(file)) {
    if (fs::is_directory(file_)) FailToWrite(file_.string(), EISDIR);
    if (fs::exists(file_) && !fs::is_regular_file(file_)) FailToWrite(file_.string(), ENOTSUP);
    std::string folder = (fs::absolute(file_).parent_path() / ".new-file-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) FailToWrite(file_.string(), errno);
    staging_ = fs::path(folder) / file_.filename();
}

NewFile::~NewFile() {
    std::error_code ignored;
    fs::remove_all(PassingFolder(), ignored);
}

void NewFile::Publish() {
    SyncToDisk(staging_);
    RenameOver(staging_, file_);
    SyncToDisk(fs::absolute(file_).parent_path());
}

void WriteNewFile(const fs::path& file, const std::function<void(std::ostream&)>& write) {
    NewFile place(file);
    std::ofstream out(place.Staging(), std::ios::binary);
    WriteWhole(out, file.string(), write);
    place.Publish();
}

// A stream keeps no reason: it is asked for where the first byte fails, before anything else is called.
void WriteWhole(std::ostream& out, const std::string& name, const std::function<void(std::ostream&)>& write) {
    const std::ios::iostate mask = out.exceptions();
    try {
        out.exceptions(std::ios::badbit | std::ios::failbit);
        write(out);
        out.flush();
        out.exceptions(mask);
    } catch (const std::ios_base::failure&) {
        const int reason = errno;
        out.exceptions(mask);
        FailToWrite(name, reason);
    }
}

}  // namespace basic
