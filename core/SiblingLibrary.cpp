#include "core/SiblingLibrary.h"

#include <cstdint>
#include <filesystem>
#include <utility>

#include <dlfcn.h>

#include "platform/basic/Error.h"

namespace qm {
namespace {

constexpr std::int32_t CannotLoad = 48;  // "Error in loading DLL", the classic number

// In the folder of the library that bears this code.
std::string PathOf(const std::string& file) {
    static const char here = 0;
    Dl_info self{};
    if (dladdr(&here, &self) == 0 || self.dli_fname == nullptr) return {};
    return (std::filesystem::absolute(self.dli_fname).parent_path() / file).string();
}

}  // namespace

SiblingLibrary::SiblingLibrary(std::string file, std::string what)
    : file_(std::move(file)), what_(std::move(what)) {}

void* SiblingLibrary::Symbol(const char* name) {
    if (!tried_) library_ = dlopen(PathOf(file_).c_str(), RTLD_NOW | RTLD_LOCAL);
    tried_ = true;
    return library_ == nullptr ? nullptr : dlsym(library_, name);
}

void SiblingLibrary::RaiseMissing() const {
    throw basic::Error(CannotLoad,
                       what_ + " cannot be loaded: " + file_ +
                           " is missing beside libqmcls.so, or a package that it needs is not installed",
                       "core.Screens");
}

}  // namespace qm
