#include "platform/basic/Display.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <set>
#include <string>

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace basic {
namespace {

constexpr int Patience = 2000;  // milliseconds
constexpr int FirstPort = 6000;

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool Connects(int family, const sockaddr* address, socklen_t length) {
    const int socket = ::socket(family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0) return false;
    bool connected = ::connect(socket, address, length) == 0;
    if (!connected && errno == EINPROGRESS) {
        pollfd waiting{socket, POLLOUT, 0};
        int failure = 0;
        socklen_t size = sizeof failure;
        connected = ::poll(&waiting, 1, Patience) == 1 &&
                    ::getsockopt(socket, SOL_SOCKET, SO_ERROR, &failure, &size) == 0 && failure == 0;
    }
    ::close(socket);
    return connected;
}

bool LocalAnswers(const std::string& path, bool abstractName) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() + 1 >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path + (abstractName ? 1 : 0), path.data(), path.size());
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size() + 1);
    return Connects(AF_UNIX, reinterpret_cast<const sockaddr*>(&address), length);
}

// A display elsewhere that did not answer is not waited for again.
bool RemoteAnswers(const std::string& host, const std::string& number) {
    static std::set<std::string> silent;
    if (silent.contains(host + ":" + number)) return false;
    const std::string port = std::to_string(FirstPort + std::atoi(number.c_str()));
    addrinfo wanted{}, *found = nullptr;
    wanted.ai_socktype = SOCK_STREAM;
    if (::getaddrinfo(host.c_str(), port.c_str(), &wanted, &found) != 0) found = nullptr;
    const std::unique_ptr<addrinfo, void (*)(addrinfo*)> addresses(found, [](addrinfo* list) {
        if (list != nullptr) ::freeaddrinfo(list);
    });
    for (const addrinfo* at = found; at != nullptr; at = at->ai_next)
        if (Connects(at->ai_family, at->ai_addr, at->ai_addrlen)) return true;
    silent.insert(host + ":" + number);
    return false;
}

// ":0", ":1.0" and "unix:0" are this machine's; "localhost:10.0" is one that is passed on.
bool XAnswers(const std::string& display) {
    const auto colon = display.rfind(':');
    if (colon == std::string::npos) return false;
    const std::string host = display.substr(0, colon);
    const std::string number = display.substr(colon + 1, display.find('.', colon) - colon - 1);
    if (number.empty() || number.find_first_not_of("0123456789") != std::string::npos || number.size() > 4)
        return false;
    if (!host.empty() && host != "unix") return RemoteAnswers(host, number);
    const std::string path = "/tmp/.X11-unix/X" + number;
    return LocalAnswers(path, false) || LocalAnswers(path, true);
}

bool WaylandAnswers(const std::string& display) {
    return LocalAnswers(display.front() == '/' ? display : Variable("XDG_RUNTIME_DIR") + "/" + display,
                        false);
}

}  // namespace

bool DisplayAnswers() {
    const std::string platform = Variable("QT_QPA_PLATFORM");
    const bool x = platform.starts_with("xcb"), wayland = platform.starts_with("wayland");
    if (!platform.empty() && !x && !wayland) return true;
    const std::string xDisplay = Variable("DISPLAY"), waylandDisplay = Variable("WAYLAND_DISPLAY");
    if (!wayland && !xDisplay.empty() && XAnswers(xDisplay)) return true;
    return !x && !waylandDisplay.empty() && WaylandAnswers(waylandDisplay);
}

}  // namespace basic
