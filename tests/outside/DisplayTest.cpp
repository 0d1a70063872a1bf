#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include "core/MsgBox.h"
#include "core/Screens.h"
#include "tests/support/InChild.h"

namespace test {
namespace {

// A display that takes the connection and hangs up.
class RudeDisplay {
  public:
    RudeDisplay() {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string name = "/tmp/.X11-unix/X4713";
        name.copy(address.sun_path + 1, name.size());
        const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
        if (bind(socket_, reinterpret_cast<sockaddr*>(&address), length) != 0 || listen(socket_, 9) != 0)
            return;
        child_ = fork();
        while (child_ == 0) close(accept(socket_, nullptr, nullptr));
    }
    ~RudeDisplay() {
        close(socket_);
        if (child_ > 0) {
            kill(child_, SIGKILL);
            waitpid(child_, nullptr, 0);
        }
    }
    bool Stands() const { return child_ > 0; }

  private:
    int socket_ = socket(AF_UNIX, SOCK_STREAM, 0);
    pid_t child_ = -1;
};

// The toolkit ends the process that starts it on a display or a platform which it cannot use.
TEST(Display, ThatCannotBeUsedEndsNoHostAndGetsNoBox) {
    const RudeDisplay rude;
    ASSERT_TRUE(rude.Stands());
    const struct {
        const char *display, *platform;
    } cases[] = {{"localhost:4711.0", ""}, {":4712", "nonsense"}, {":4713", ""}, {":4713", "xcb"}};
    for (const auto& c : cases)
        EXPECT_EQ(InChild([&] {
                      setenv("DISPLAY", c.display, 1);
                      unsetenv("WAYLAND_DISPLAY");
                      setenv("QT_QPA_PLATFORM", c.platform, 1);
                      const bool told = qm::MsgBox("a box", qm::vbYesNo) == qm::vbNo;
                      return told && qm::MsgBox("another") == qm::vbOK && qm::LoadScreens() ? 3 : 4;
                  }),
                  3)
            << c.display << " " << c.platform;
}

}  // namespace
}  // namespace test
