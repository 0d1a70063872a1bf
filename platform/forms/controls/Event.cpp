#include "platform/forms/controls/Event.h"

#include "platform/forms/window/EventScope.h"
#include "platform/forms/window/Form.h"
#include "platform/forms/window/MessageBox.h"

namespace forms {

EventScope::EventScope(FormWindow* window) : window_(window) {
    if (window_) ++window_->runningEvents_;
}

EventScope::~EventScope() {
    if (!window_ || --window_->runningEvents_ > 0) return;
    if (window_->unloadWanted_ && window_->form_) window_->form_->Unload();
}

void RunEvent(QWidget* owner, const std::function<void()>& body) {
    FormWindow* const window = FormWindow::Of(owner);
    if (window && !window->Owner()) return;
    const EventScope scope(window);
    try {
        body();
    } catch (...) {
        ShowUntrappedError(std::current_exception());
    }
}

}  // namespace forms
