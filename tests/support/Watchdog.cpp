#include "tests/support/Watchdog.h"

#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <thread>

#include <execinfo.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

namespace test {
namespace {

void PrintStackAndAbort(int) {
    void* frames[100];
    const int count = backtrace(frames, 100);
    backtrace_symbols_fd(frames, count, STDERR_FILENO);
    signal(SIGABRT, SIG_DFL);
    abort();
}

}  // namespace

struct Watchdog::State {
    std::mutex mutex;
    std::condition_variable ended;
    bool over = false;
    std::thread waiter;
};

Watchdog::Watchdog(std::chrono::seconds patience) : state_(std::make_unique<State>()) {
    signal(SIGABRT, PrintStackAndAbort);
    state_->waiter = std::thread([state = state_.get(), patience, watched = pthread_self()] {
        std::unique_lock lock(state->mutex);
        if (!state->ended.wait_for(lock, patience, [state] { return state->over; }))
            pthread_kill(watched, SIGABRT);
    });
}

Watchdog::~Watchdog() {
    {
        const std::lock_guard lock(state_->mutex);
        state_->over = true;
    }
    state_->ended.notify_one();
    state_->waiter.join();
}

}  // namespace test
