#include <QPushButton>
#include <atomic>
#include <thread>

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

// What is asked of one moment stands in a transaction, which no connection makes anew by itself.
TEST_F(JobBarTest, AJobThatAServersGoingBrokeOffIsBegunAnew) {
    QM_SERVER_ONLY();
    Start();
    desk::JobBar bar(nullptr);
    std::string told;
    const auto ask = [&] {
        bar.Run(
            desk->Books().Background(), "Asking",
            [](queries::Reading& reading, desk::Worker::Job&) {
                const queries::Reading::Moment moment(reading);
                reading.Years();
            },
            [&](std::exception_ptr failure) { told += failure ? "failed " : "answered "; });
        ASSERT_TRUE(QTest::qWaitFor([&] { return !bar.Running(); }));
    };
    ask();
    test::ServerDatabase::RunOn(desk->Books().Name().toStdString(),
                                "SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity "
                                "WHERE datname = current_database() AND pid <> pg_backend_pid()");
    ask();
    EXPECT_EQ(told, "answered answered ");
}

TEST_F(JobBarTest, APageThatIsLeftTakesItsJobWithIt) {
    Start();
    std::string told;
    const auto run = [&](desk::JobBar& bar, bool ends) {
        bar.Run(
            desk->Books().Background(), "Counting",
            [ends](queries::Reading&, desk::Worker::Job& job) {
                for (std::size_t step = 0; !ends; ++step) job.Step(step);
            },
            [&](std::exception_ptr) { told += "ended"; });
    };
    auto left = std::make_unique<desk::JobBar>(nullptr);
    run(*left, false);
    left.reset();
    desk::JobBar next(nullptr);
    run(next, true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !next.Running(); }));
    EXPECT_EQ(told, "ended");
}

TEST_F(JobBarTest, AnEndIsOfTheMainThreadAndOfBooksThatAreOpen) {
    Start();
    auto worker = std::make_shared<desk::Worker>(desk->Books().Address(), "2001");
    std::thread::id letGo;
    std::atomic<bool> worked = false;
    std::string told;
    const auto run = [&](bool ends) {
        worked = false;
        const std::shared_ptr<void> held(nullptr, [&](void*) { letGo = std::this_thread::get_id(); });
        return worker->Start(
            *desk,
            [&worked, ends](queries::Reading&, desk::Worker::Job& job) {
                worked = true;
                worked.notify_all();
                while (!ends) job.Step(0);
            },
            [&told, held](std::exception_ptr) { told += "ended "; });
    };
    const auto wait = [&] { worked.wait(false); };
    const auto cancelled = run(false);
    wait();
    worker->Cancel(cancelled);
    ASSERT_TRUE(QTest::qWaitFor([&] { return letGo != std::thread::id(); }));
    EXPECT_EQ(letGo, std::this_thread::get_id());
    run(true);
    wait();
    worker.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(told, "");
}

}  // namespace
