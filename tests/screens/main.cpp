#include <QApplication>
#include <memory>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/forms/window/Application.h"
#include "tests/support/Watchdog.h"

// The host of the screens: one without a window application, unless it is told to have its own. The platform
// is the one that draws to memory, unless a developer names another.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_NUMERIC", "C.UTF-8");  // which the toolkit would take over for the whole process
    testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<QApplication> application;
    if (argc > 1 && std::string_view(argv[1]) == "--own-application")
        application = std::make_unique<QApplication>(argc, argv);
    const test::Watchdog watchdog(std::chrono::seconds(100));
    return RUN_ALL_TESTS();
}
