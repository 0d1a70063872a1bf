#include <QApplication>

#include <gtest/gtest.h>

#include "tests/support/Watchdog.h"

// The tests make the application, as a host would, on the platform that draws to memory unless a developer
// names another.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    const test::Watchdog watchdog(std::chrono::seconds(100));
    return RUN_ALL_TESTS();
}
