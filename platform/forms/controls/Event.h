#pragma once

#include <exception>
#include <functional>
#include <utility>

class QWidget;

namespace forms {

// Runs `body` as an event of the form that `owner` belongs to. An error that leaves the body is shown as the
// platform shows one that nobody trapped, and the window stays open: nothing thrown may travel through the
// toolkit's event loop. While the body runs, an Unload of that form waits; it is carried out when its
// outermost event returns. Nothing runs for a window that has been unloaded.
void RunEvent(QWidget* owner, const std::function<void()>& body);

// What shows such an error: the first form that is loaded puts the message box here. Before, no window is
// there, and the error goes on to whoever fired the event.
using UntrappedError = void (*)(std::exception_ptr error);
void ShowUntrappedBy(UntrappedError show);

// One event of a control, such as Click or Validate. A form sets the handler in Wire(); the control fires it.
template <class... Args>
class Event {
  public:
    explicit Event(QWidget* owner) : owner_(owner) {}
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    Event& operator=(std::function<void(Args...)> handler) {
        handler_ = std::move(handler);
        return *this;
    }
    explicit operator bool() const { return static_cast<bool>(handler_); }

    // Runs the handler, if there is one, and returns when it has. Arguments by reference hand its answer
    // back.
    void Fire(Args... args) const {
        if (!handler_) return;
        const auto handler = handler_;  // kept alive: the handler may set another one
        RunEvent(owner_, [&] { handler(args...); });
    }

  private:
    QWidget* owner_;
    std::function<void(Args...)> handler_;
};

}  // namespace forms
