#include <QByteArray>
#include <thread>

#include <gtest/gtest.h>

#include "platform/basic/Error.h"
#include "platform/forms/window/Application.h"
#include "platform/forms/window/Display.h"

using namespace forms;

namespace {

// Sets the three variables that name a display, and puts back what stood there.
class Environment {
  public:
    Environment(const char* platform, const char* display, const char* wayland) {
        Set(0, platform);
        Set(1, display);
        Set(2, wayland);
    }
    ~Environment() {
        for (int i = 0; i < 3; ++i) before_[i].isNull() ? qunsetenv(Names[i]) : qputenv(Names[i], before_[i]);
    }

  private:
    static constexpr const char* Names[] = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
    void Set(int i, const char* value) {
        before_[i] = qgetenv(Names[i]);
        value ? qputenv(Names[i], value) : qunsetenv(Names[i]);
    }
    QByteArray before_[3];
};

TEST(Display, MustAnswer) {
    const struct {
        const char *platform, *display, *wayland;
        bool answers;
    } cases[] = {
        {nullptr, nullptr, nullptr, false},
        {nullptr, "", "", false},
        {"offscreen", nullptr, nullptr, true},
        {"minimal:x", nullptr, nullptr, true},
        {"xcb", nullptr, nullptr, false},
        {nullptr, ":4711", nullptr, false},
        {nullptr, "unix:4711.0", nullptr, false},
        {nullptr, "nonsense", nullptr, false},
        {nullptr, nullptr, "wayland-4711", false},
        {"wayland", ":4711", "/nowhere", false},
        {nullptr, "localhost:4711.0", nullptr, false},
    };
    for (const auto& c : cases) {
        const Environment environment(c.platform, c.display, c.wayland);
        EXPECT_EQ(DisplayAnswers(), c.answers)
            << (c.display ? c.display : "-") << (c.platform ? c.platform : "-");
    }
}

TEST(Application, AHostsOwnIsUsedAsItIs) {
    EXPECT_TRUE(DisplayAvailable());
    EXPECT_NO_THROW(EnsureApplication());
}

TEST(Application, AnotherThreadIsRefused) {
    std::thread([] { EXPECT_THROW(EnsureApplication(), basic::Error); }).join();
}

}  // namespace
