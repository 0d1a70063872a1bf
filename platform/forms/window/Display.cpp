#include "platform/forms/window/Display.h"

#include <QDir>
#include <QLibraryInfo>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace forms {
namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool Answers(const std::string& path, bool abstractName) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() + 1 >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path + (abstractName ? 1 : 0), path.data(), path.size());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0) return false;
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size() + 1);
    const bool connected = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), length) == 0;
    ::close(socket);
    return connected;
}

// ":0", ":1.0" and "unix:0" are this machine's; a display elsewhere is taken at its word.
bool XAnswers(const std::string& display) {
    const auto colon = display.rfind(':');
    if (colon == std::string::npos) return false;
    const std::string host = display.substr(0, colon);
    if (!host.empty() && host != "unix") return true;
    const std::string number = display.substr(colon + 1, display.find('.', colon) - colon - 1);
    const std::string path = "/tmp/.X11-unix/X" + number;
    return Answers(path, false) || Answers(path, true);
}

bool WaylandAnswers(const std::string& display) {
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms");
    if (plugins.entryList({"libqwayland*"}).isEmpty()) return false;
    return Answers(display.front() == '/' ? display : Variable("XDG_RUNTIME_DIR") + "/" + display, false);
}

}  // namespace

bool DisplayAnswers() {
    const std::string platform = Variable("QT_QPA_PLATFORM");
    const bool named = !platform.empty() && !platform.starts_with("xcb") && !platform.starts_with("wayland");
    if (named) return true;  // "offscreen" and the like need no display
    const std::string wayland = Variable("WAYLAND_DISPLAY"), x = Variable("DISPLAY");
    if (!platform.starts_with("wayland") && !x.empty() && XAnswers(x)) return true;
    return !platform.starts_with("xcb") && !wayland.empty() && WaylandAnswers(wayland);
}

}  // namespace forms
