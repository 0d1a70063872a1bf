#include "tests/support/DiskCalls.h"

#include <cerrno>
#include <cstdio>
#include <utility>

#include <dlfcn.h>
#include <unistd.h>

namespace {

test::DiskWatch watch;

std::string FileOf(int handle) {
    char path[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(handle);
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    return {path, static_cast<std::size_t>(length < 0 ? 0 : length)};
}

template <class... Arguments>
int Call(const char* name, const std::string& file, Arguments... arguments) {
    if (watch && !watch(name, file)) {
        errno = EIO;
        return -1;
    }
    return reinterpret_cast<int (*)(Arguments...)>(dlsym(RTLD_NEXT, name))(arguments...);
}

}  // namespace

// The libraries find these before the system's own.
extern "C" int fsync(int handle) {
    return Call("fsync", FileOf(handle), handle);
}
extern "C" int fdatasync(int handle) {
    return Call("fdatasync", FileOf(handle), handle);
}
extern "C" int link(const char* from, const char* to) noexcept {
    return Call("link", to, from, to);
}
extern "C" int rename(const char* from, const char* to) noexcept {
    return Call("rename", to, from, to);
}
extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept {
    return Call("renameat2", to, fromFolder, from, toFolder, to, flags);
}

namespace test {

void WatchDisk(DiskWatch wanted) {
    watch = std::move(wanted);
}

}  // namespace test
