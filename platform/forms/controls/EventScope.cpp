#include "platform/forms/controls/EventScope.h"

#include "platform/forms/controls/ControlWindow.h"

namespace forms {

EventScope::EventScope(QWidget* widget)
    : window_(ControlWindow::Of(widget)), alive_(widget ? widget->window() : nullptr) {
    if (window_) window_->EventBegins();
}

EventScope::~EventScope() {
    if (window_ && alive_) window_->EventEnded();
}

}  // namespace forms
