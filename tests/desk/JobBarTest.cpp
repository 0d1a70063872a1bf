#include <QPushButton>

#include "desk/Books.h"
#include "desk/JobBar.h"
#include "tests/desk/DeskFixture.h"

namespace {

using JobBarTest = test::DeskTest;

TEST_F(JobBarTest, CancelEndsALongJobAndTheNextOneRuns) {
    Start();
    desk::JobBar bar(nullptr);
    std::string told;
    bar.Run(
        desk->Books().Background(), "Counting",
        [](queries::Reading&, desk::Worker::Job& job) {
            for (std::size_t step = 0;; ++step) job.Step(step);
        },
        [&](std::exception_ptr) { told += "ended "; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar.isVisible(); }));
    QTest::mouseClick(bar.findChild<QPushButton*>("cancelJob"), Qt::LeftButton);
    EXPECT_FALSE(bar.isVisible());
    bar.Run(
        desk->Books().Background(), "Failing",
        [](queries::Reading& reading, desk::Worker::Job&) { reading.Select("Select Nothing From Nowhere"); },
        [&](std::exception_ptr failure) { told += failure ? "failed" : "went well"; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return !bar.Running(); }));
    EXPECT_EQ(told, "failed");
}

}  // namespace
