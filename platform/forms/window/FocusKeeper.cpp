#include "platform/forms/window/FocusKeeper.h"

#include <QApplication>

#include "platform/forms/window/Form.h"

namespace forms {
namespace {

// No window is active for the toolkit right after a box or a form has closed.
QWidget* WindowInFront() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    return Form::Topmost();
}

}  // namespace

FocusKeeper::FocusKeeper() : window_(WindowInFront()), focused_(window_ ? window_->focusWidget() : nullptr) {}

FocusKeeper::~FocusKeeper() {
    if (!window_ || !window_->isVisible()) return;
    window_->activateWindow();
    QApplication::setActiveWindow(window_);
    if (focused_ && focused_->isVisible()) focused_->setFocus(Qt::ActiveWindowFocusReason);
}

}  // namespace forms
