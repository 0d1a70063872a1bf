#include "bench/SlowWire.h"

#include <atomic>
#include <csignal>
#include <stdexcept>
#include <thread>
#include <vector>

#include <poll.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/basic/Text.h"

namespace bench {

struct SlowWire::Shared {
    std::atomic<std::int64_t> trips{0}, delay{0};  // in microseconds
};

namespace {

namespace fs = std::filesystem;

fs::path FolderIn(const std::string& uri) {
    const std::size_t from = uri.find('@') + 1;
    const std::string folder = basic::Replace(uri.substr(from, uri.size() - 1 - from), "%2F", "/");
    if (!folder.starts_with("/")) throw std::runtime_error("the server must be one of this machine");
    return folder;
}

fs::path NewFolder() {
    std::string pattern = fs::temp_directory_path() / "qmwire-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for the wire");
    return pattern;
}

template <class Call>
int Socket(const fs::path& folder, Call call) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    (folder / ".s.PGSQL.5432").string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int made = socket(AF_UNIX, SOCK_STREAM, 0);
    if (call(made, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("no socket in " + folder.string());
    return made;
}

void* SharedMemory(std::size_t size) {
    return mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
}

bool Pass(int from, int to, std::vector<char>& bytes) {
    const ssize_t count = read(from, bytes.data(), bytes.size());
    for (ssize_t passed = 0; passed < count;) {
        const ssize_t now = write(to, bytes.data() + passed, static_cast<std::size_t>(count - passed));
        if (now <= 0) return false;
        passed += now;
    }
    return count > 0;
}

}  // namespace

SlowWire::SlowWire(const std::string& server)
    : server_(FolderIn(server)), folder_(NewFolder()), shared_(new (SharedMemory(sizeof(Shared))) Shared) {
    const int door = Socket(folder_, bind);
    if (listen(door, 8) != 0) throw std::runtime_error("the wire takes no calls");
    child_ = fork();
    if (child_ == 0)
        for (;;) Serve(accept(door, nullptr, nullptr));
    close(door);
}

SlowWire::~SlowWire() {
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
    fs::remove_all(folder_);
    munmap(shared_, sizeof(Shared));
}

std::string SlowWire::Uri() const {
    return "postgresql://postgres@" + basic::Replace(folder_.string(), "/", "%2F") + "/";
}

void SlowWire::Delay(std::chrono::microseconds trip) {
    shared_->delay = trip.count();
}

std::int64_t SlowWire::Trips() const {
    return shared_->trips;
}

void SlowWire::Serve(int client) const {
    const int server = Socket(server_, connect);
    pollfd ends[] = {{client, POLLIN, 0}, {server, POLLIN, 0}};
    std::vector<char> bytes(std::size_t{1} << 20);
    bool asked = false;
    for (bool up = true; up && poll(ends, 2, -1) > 0;) {
        if (ends[0].revents == 0) {
            up = Pass(server, client, bytes);
            asked = false;
            continue;
        }
        if (!asked) {
            ++shared_->trips;
            std::this_thread::sleep_for(std::chrono::microseconds(shared_->delay));
        }
        asked = true;
        up = Pass(client, server, bytes);
    }
    close(client);
    close(server);
}

}  // namespace bench
