#include "platform/forms/controls/Event.h"

#include "platform/forms/controls/ControlWindow.h"
#include "platform/forms/controls/EventScope.h"

namespace forms {
namespace {

UntrappedError showUntrapped = nullptr;

}  // namespace

void ShowUntrappedBy(UntrappedError show) {
    showUntrapped = show;
}

void RunEvent(QWidget* owner, const std::function<void()>& body) {
    const ControlWindow* const window = ControlWindow::Of(owner);
    if (window && !window->TakesEvents()) return;
    const EventScope scope(owner);
    try {
        body();
    } catch (...) {
        if (!showUntrapped) throw;
        showUntrapped(std::current_exception());
    }
}

}  // namespace forms
