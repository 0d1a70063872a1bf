#include <QThread>

#include <gtest/gtest.h>

#include "tests/support/Watchdog.h"

namespace {

TEST(WatchdogDeathTest, EndsAHungTestWithItsStack) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            const test::Watchdog watchdog(std::chrono::seconds(0));
            for (;;) QThread::msleep(10);
        },
        "forms_test");
}

}  // namespace
