#include "desk/Worker.h"

#include <QCoreApplication>
#include <utility>

#include <malloc.h>

#include "platform/basic/Error.h"
#include "queries/Server.h"

namespace desk {
namespace {

constexpr int Long = 1 << 20;  // bytes of a list that goes back to the system as soon as it is let go

}  // namespace

void Worker::Job::Step(std::size_t done) {
    Done = done;
    if (Cancelled) throw Stop{};
}

Worker::Worker(std::string dataPath, std::string year, std::optional<int> keptKb)
    : dataPath_(std::move(dataPath)), year_(std::move(year)), keptKb_(keptKb), thread_([this] { Loop(); }) {
    mallopt(M_MMAP_THRESHOLD, Long);
    mallopt(M_TRIM_THRESHOLD, Long);
}

Worker::~Worker() {
    {
        const std::lock_guard lock(guard_);
        ending_ = true;
        if (running_) running_->Cancelled = true;
        if (running_ && books_) books_->Cancel();
    }
    wake_.notify_all();
    thread_.join();
}

std::shared_ptr<Worker::Job> Worker::Start(QObject& owner, std::function<void(queries::Reading&, Job&)> work,
                                           std::function<void(std::exception_ptr)> end) {
    auto job = std::make_shared<Job>();
    {
        const std::lock_guard lock(guard_);
        tasks_.push_back({job, &owner, std::move(work), std::move(end)});
    }
    wake_.notify_all();
    return job;
}

void Worker::Cancel(const std::shared_ptr<Job>& job) {
    if (!job) return;
    const std::lock_guard lock(guard_);
    job->Cancelled = true;
    if (job == running_ && books_) books_->Cancel();
}

bool Worker::IsIdle() {
    const std::lock_guard lock(guard_);
    return tasks_.empty() && !running_;
}

void Worker::Loop() {
    std::unique_lock lock(guard_);
    for (;;) {
        wake_.wait(lock, [this] { return ending_ || !tasks_.empty(); });
        if (ending_) break;
        Task task = std::move(tasks_.front());
        tasks_.pop_front();
        running_ = task.Of;
        if (books_) books_->GoOn();
        lock.unlock();
        Run(std::move(task));
        if (books_) books_->ForgetPages();
        malloc_trim(0);  // what a long answer was worked out in goes back to the system
        lock.lock();
        running_.reset();
    }
    books_.reset();
}

// The connection asks nothing of one moment again by itself when the server was gone and is back. A job only
// reads: it is begun anew on another.
void Worker::DoTwiceAtMost(const Task& task) {
    const auto open = [this] {
        auto books = std::make_unique<queries::Reading>(dataPath_, year_, keptKb_);
        const std::lock_guard lock(guard_);
        books_.swap(books);
    };
    if (!books_) open();
    try {
        task.Work(*books_, *task.Of);
    } catch (const basic::Error& error) {
        if (!queries::IsLost(error)) throw;
        task.Of->Step(0);
        open();
        task.Work(*books_, *task.Of);
    }
}

// The task goes back through the application, which outlives every page: the owner is asked for there, on
// its own thread.
void Worker::Run(Task task) {
    std::exception_ptr failure;
    bool stopped = false;
    try {
        task.Of->Step(0);
        DoTwiceAtMost(task);
    } catch (const Stop&) {
        stopped = true;
    } catch (...) {
        failure = std::current_exception();
    }
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [task = std::move(task), here = std::weak_ptr(here_), failure, stopped] {
            if (task.Owner && !stopped && !task.Of->Cancelled && !here.expired()) task.End(failure);
        },
        Qt::QueuedConnection);
}

}  // namespace desk
