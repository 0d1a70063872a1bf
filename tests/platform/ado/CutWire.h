#pragma once

#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/basic/Text.h"
#include "tests/support/Server.h"
#include "tests/support/TempFolder.h"

namespace ado::test {

// A wire to the tests' server that can be cut: a socket in a folder of its own, served by a child process.
class CutWire {
  public:
    enum Cut : char { Before = 'b', After = 'a' };  // the server gets the next packet, or does not

    CutWire() {
        const int door = Socket(folder_.Path().string(), bind);
        if (listen(door, 8) != 0 || socketpair(AF_UNIX, SOCK_STREAM, 0, command_) != 0)
            throw std::runtime_error("no socket");
        child_ = fork();
        if (child_ == 0)
            for (;;) Serve(accept(door, nullptr, nullptr));
        close(door);
    }
    ~CutWire() {
        kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
        close(command_[0]);
        close(command_[1]);
    }
    CutWire(const CutWire&) = delete;
    CutWire& operator=(const CutWire&) = delete;

    // The same data source by this wire.
    std::string Path(const std::string& source) const {
        return "postgresql://postgres@" + basic::Replace(folder_.Path().string(), "/", "%2F") +
               source.substr(::test::ServerUri().size() - 1);
    }
    // Cuts once, at the packet that goes out after `packets` others.
    void CutNext(Cut cut, int packets = 0) const {
        const char order[] = {cut, static_cast<char>(packets)};
        if (write(command_[0], order, sizeof order) != sizeof order) throw std::runtime_error("no wire");
    }
    void TakeAway() const {  // for new connections
        std::filesystem::remove(folder_ / ".s.PGSQL.5432");
    }

  private:
    template <class Call>
    static int Socket(const std::string& folder, Call call) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        (folder + "/.s.PGSQL.5432").copy(address.sun_path, sizeof address.sun_path - 1);
        const int made = socket(AF_UNIX, SOCK_STREAM, 0);
        if (call(made, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            throw std::runtime_error("no socket in " + folder);
        return made;
    }

    static std::string ServerFolder() {
        const std::string uri = basic::Replace(::test::ServerUri(), "%2F", "/");
        const std::size_t from = uri.find('@') + 1;
        return uri.substr(from, uri.size() - 1 - from);
    }

    static bool Pass(int from, int to) {
        char bytes[65536];
        const ssize_t count = read(from, bytes, sizeof bytes);
        return count > 0 && write(to, bytes, static_cast<std::size_t>(count)) == count;
    }

    void Serve(int client) const {
        const int server = Socket(ServerFolder(), connect);
        pollfd ends[] = {{client, POLLIN, 0}, {server, POLLIN, 0}, {command_[1], POLLIN, 0}};
        char order[2] = {};
        for (bool up = true; up && poll(ends, 3, -1) > 0;) {
            if (ends[2].revents != 0) {
                up = read(command_[1], order, sizeof order) == sizeof order;
            } else if (ends[0].revents != 0 && order[0] != 0 && order[1]-- == 0) {
                if (order[0] == After) Pass(client, server);
                shutdown(server, SHUT_WR);
                char dropped[4096];
                while (read(server, dropped, sizeof dropped) > 0) {
                }
                up = false;
            } else if (ends[0].revents != 0) {
                up = Pass(client, server);
            } else {
                up = Pass(server, client);
            }
        }
        close(client);
        close(server);
    }

    ::test::TempFolder folder_;
    int command_[2] = {};
    pid_t child_ = 0;
};

}  // namespace ado::test
