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
    enum Cut : char { None = 0, Before = 'b', After = 'a' };  // the server runs the statement, or does not

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
    // Cuts once, or None any more, at the statement that goes out after `others`, wherever it stands in its
    // packet.
    void CutNext(Cut cut, unsigned char others = 0) const {
        const unsigned char order[] = {static_cast<unsigned char>(cut), others};
        if (write(command_[0], order, sizeof order) != sizeof order) throw std::runtime_error("no wire");
    }
    void TakeAway() const {  // for new connections
        std::filesystem::rename(folder_ / ".s.PGSQL.5432", folder_ / "away");
    }
    void BringBack() const { std::filesystem::rename(folder_ / "away", folder_ / ".s.PGSQL.5432"); }

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

    // Passes messages on as they come, each a letter and its length; the first of a connection has no letter.
    // False: it was cut in front of a statement's execution, or behind it and the end of its packet.
    static bool PassMessages(std::string& from, int to, bool& greeted, unsigned char (&order)[2]) {
        for (;;) {
            const std::size_t letter = greeted ? 1 : 0;
            if (from.size() < letter + 4) return true;
            std::size_t length = letter;
            for (int at = 3, shift = 0; at >= 0; --at, shift += 8)
                length += static_cast<std::size_t>(static_cast<unsigned char>(from[letter + at])) << shift;
            if (from.size() < length) return true;
            const bool executes = greeted && from[0] == 'E' && order[0] != 0;
            const bool cut = executes && order[1]-- == 0;
            if (cut && order[0] == After && from.size() > length && from[length] == 'S') length += 5;
            if (!cut || order[0] == After)
                if (write(to, from.data(), length) != static_cast<ssize_t>(length)) return false;
            if (cut) return false;
            from.erase(0, length);
            greeted = true;
        }
    }

    void Serve(int client) const {
        const int server = Socket(ServerFolder(), connect);
        pollfd ends[] = {{client, POLLIN, 0}, {server, POLLIN, 0}, {command_[1], POLLIN, 0}};
        unsigned char order[2] = {};
        std::string sent;
        bool greeted = false;
        for (bool up = true; up && poll(ends, 3, -1) > 0;) {
            char bytes[65536];
            if (ends[2].revents != 0) {
                up = read(command_[1], order, sizeof order) == sizeof order;
            } else if (ends[0].revents != 0) {
                const ssize_t count = read(client, bytes, sizeof bytes);
                up = count > 0 && PassMessages(sent.append(bytes, static_cast<std::size_t>(count)), server,
                                               greeted, order);
            } else {
                const ssize_t count = read(server, bytes, sizeof bytes);
                up = count > 0 && write(client, bytes, static_cast<std::size_t>(count)) == count;
            }
        }
        // The server comes to the end of what it has before the client hears of anything.
        shutdown(server, SHUT_WR);
        char dropped[4096];
        while (read(server, dropped, sizeof dropped) > 0) {
        }
        close(client);
        close(server);
    }

    ::test::TempFolder folder_;
    int command_[2] = {};
    pid_t child_ = 0;
};

}  // namespace ado::test
