#pragma once

#include <QObject>
#include <QPointer>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "queries/Reading.h"

namespace desk {

// What takes longer than a moment: one thread with a read-only connection of its own. Jobs run one after the
// other; the class is never called from here.
class Worker : public std::enable_shared_from_this<Worker> {
  public:
    // One job, as both sides see it.
    struct Job {
        std::atomic<bool> Cancelled{false};
        std::atomic<std::size_t> Done{0}, Total{0};  // steps, for the bar; Total 0 where nobody knows

        // For the work: goes on to a step. Raises Stop once the user has cancelled.
        void Step(std::size_t done);
    };
    struct Stop {};

    // `keptKb`: see queries::Reading.
    Worker(std::string dataPath, std::string year, std::optional<int> keptKb = {});
    ~Worker();  // cancels what runs and waits for it
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    // Runs `work` there and `end` on the main thread, with what the work raised, if anything; no `end` for a
    // job that was cancelled, or where `owner` or the worker is gone by then. What the two hold is let go on
    // the main thread.
    std::shared_ptr<Job> Start(QObject& owner, std::function<void(queries::Reading&, Job&)> work,
                               std::function<void(std::exception_ptr)> end);

    // Ends the job, in the middle of a statement too, or drops it where it has not begun; null is none.
    void Cancel(const std::shared_ptr<Job>& job);

    bool IsIdle();  // nothing runs or waits; the last end may still be on its way

  private:
    struct Task {
        std::shared_ptr<Job> Of;
        QPointer<QObject> Owner;
        std::function<void(queries::Reading&, Job&)> Work;
        std::function<void(std::exception_ptr)> End;
    };
    void Loop();
    void Run(Task task);
    void DoTwiceAtMost(const Task& task);

    std::string dataPath_, year_;
    std::optional<int> keptKb_;
    const std::shared_ptr<Worker*> here_ = std::make_shared<Worker*>(this);  // as long as it lives
    std::unique_ptr<queries::Reading> books_;                                // opened by the first job
    std::mutex guard_;
    std::condition_variable wake_;
    std::deque<Task> tasks_;
    std::shared_ptr<Job> running_;
    bool ending_ = false;
    std::thread thread_;  // the last: it uses all of the above
};

}  // namespace desk
