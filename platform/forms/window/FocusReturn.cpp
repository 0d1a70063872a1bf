#include "platform/forms/window/FocusReturn.h"

#include <QApplication>

#include "platform/forms/window/FormWindow.h"

namespace forms {
namespace {

// No window is active for the toolkit right after a box or a form has closed.
QWidget* WindowInFront() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    return FormWindow::Topmost();
}

}  // namespace

FocusReturn::FocusReturn() : window_(WindowInFront()), focused_(window_ ? window_->focusWidget() : nullptr) {}

FocusReturn::~FocusReturn() {
    if (!window_ || !window_->isVisible()) return;
    window_->activateWindow();
    QApplication::setActiveWindow(window_);
    if (focused_ && focused_->isVisible()) focused_->setFocus(Qt::ActiveWindowFocusReason);
}

}  // namespace forms
