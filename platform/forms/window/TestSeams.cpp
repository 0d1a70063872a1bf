#include "platform/forms/window/TestSeams.h"

#include <condition_variable>
#include <mutex>
#include <thread>

#include <execinfo.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include "platform/forms/window/Form.h"

namespace forms {
namespace {

Script* current = nullptr;

// Yes and No are flag 4; where a box was not expected, it is answered with the button that does nothing.
int SafeAnswer(int flags) {
    return flags & 4 ? 7 : 1;
}

void PrintStackAndAbort(int) {
    void* frames[100];
    const int count = backtrace(frames, 100);
    backtrace_symbols_fd(frames, count, STDERR_FILENO);
    signal(SIGABRT, SIG_DFL);
    abort();
}

}  // namespace

Script::Script(Report report) : report_(std::move(report)) {
    current = this;
}

Script::~Script() {
    current = nullptr;
    for (const Step& step : steps_) report_("never came: " + step.Description());
}

Script& Script::Box(ExpectedBox box) {
    steps_.push_back({std::move(box), {}, {}});
    return *this;
}

Script& Script::Box(std::string text, int answer) {
    return Box(ExpectedBox{std::move(text), answer});
}

Script& Script::Modal(std::string formName, std::function<void(Form&)> visit) {
    steps_.push_back({std::nullopt, std::move(formName), std::move(visit)});
    return *this;
}

std::string Script::Step::Description() const {
    return box ? "box \"" + box->text + '"' : "form " + formName;
}

std::string Script::Next() const {
    return steps_.empty() ? "nothing" : steps_.front().Description();
}

int Script::AnswerBox(const std::string& text, int flags, const std::string& title) {
    if (steps_.empty() || !steps_.front().box || steps_.front().box->text != text) {
        report_("unexpected box \"" + text + "\"; expected: " + Next());
        return SafeAnswer(flags);
    }
    const ExpectedBox box = *steps_.front().box;
    steps_.pop_front();
    if (box.title != title) report_("box \"" + text + "\" has the title \"" + title + '"');
    if (box.flags && *box.flags != flags)
        report_("box \"" + text + "\" has the flags " + std::to_string(flags));
    return box.answer;
}

void Script::VisitModal(Form& form) {
    if (steps_.empty() || steps_.front().box || steps_.front().formName != form.Name()) {
        report_("unexpected form " + form.Name() + "; expected: " + Next());
    } else {
        const Step step = steps_.front();
        steps_.pop_front();
        if (step.visit) step.visit(form);
    }
    if (form.Visible()) form.Unload();
}

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

namespace seams {

std::optional<int> TakeBox(const std::string& text, int flags, const std::string& title) {
    if (!current) return std::nullopt;
    return current->AnswerBox(text, flags, title);
}

bool VisitModal(Form& form) {
    if (!current) return false;
    current->VisitModal(form);
    return true;
}

}  // namespace seams

}  // namespace forms
