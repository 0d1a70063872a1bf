#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

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
        const std::string name = "/tmp/.X11-unix/X" + Number();
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
    static std::string Number() { return std::to_string(5000 + getpid() % 5000); }  // of this test alone

  private:
    int socket_ = socket(AF_UNIX, SOCK_STREAM, 0);
    pid_t child_ = -1;
};

bool ScreensAreLoaded() {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);)
        if (line.ends_with("/libqmscreens.so")) return true;
    return false;
}

// The toolkit ends the process that starts it on a display or a platform which it cannot use. Where the
// display's socket tells already, nothing of the toolkit is loaded.
TEST(Display, ThatCannotBeUsedEndsNoHostAndGetsNoBox) {
    const RudeDisplay rude;
    ASSERT_TRUE(rude.Stands());
    const std::string name = ":" + rude.Number();
    const struct {
        const char *display, *platform;
        bool loads;
    } cases[] = {{"localhost:4711.0", "", false},
                 {":4712", "xcb", false},
                 {":4712", "nonsense", true},
                 {name.c_str(), "", true},
                 {name.c_str(), "xcb", true}};
    for (const auto& c : cases)
        EXPECT_EQ(InChild([&] {
                      setenv("DISPLAY", c.display, 1);
                      unsetenv("WAYLAND_DISPLAY");
                      setenv("QT_QPA_PLATFORM", c.platform, 1);
                      testing::internal::CaptureStderr();
                      const bool answered = qm::MsgBox("a question", qm::vbYesNo) == qm::vbNo &&
                                            qm::MsgBox("another") == qm::vbOK;
                      if (testing::internal::GetCapturedStderr() != "a question\nanother\n") return 1;
                      if (ScreensAreLoaded() != c.loads) return 2;
                      return answered && qm::LoadScreens() ? 0 : 3;
                  }),
                  0)
            << c.display << " " << c.platform;
}

}  // namespace
}  // namespace test
