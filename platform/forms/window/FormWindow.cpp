#include "platform/forms/window/FormWindow.h"

#include <QCloseEvent>
#include <QPushButton>
#include <QWindow>

#include "platform/forms/controls/Control.h"

namespace forms {

FormWindow::FormWindow(WindowOwner& form) : form_(&form), focus_(*this) {
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                   Qt::WindowCloseButtonHint);
    setAttribute(Qt::WA_QuitOnClose, false);  // a host's own loop must not end with our windows
    setMouseTracking(true);
}

FormWindow* FormWindow::Of(QWidget* widget) {
    return widget ? dynamic_cast<FormWindow*>(widget->window()) : nullptr;
}

std::vector<FormWindow*>& FormWindow::Shown() {
    static std::vector<FormWindow*> shown;
    return shown;
}

FormWindow* FormWindow::Topmost() {
    return Shown().empty() ? nullptr : Shown().back();
}

void FormWindow::LetGoOfForm() {
    form_ = nullptr;
    focus_.End();
    std::erase(Shown(), this);
}

bool FormWindow::MoveFocus(Control& target, Qt::FocusReason reason) {
    return focus_.Move(target, reason);
}

bool FormWindow::focusNextPrevChild(bool next) {
    return focus_.Step(next);
}

void FormWindow::EventEnded() {
    if (--runningEvents_ == 0 && unloadWanted_ && form_) form_->Unload();
}

void FormWindow::reject() {
    if (form_) RunEvent(this, [this] { form_->Form_Escape(); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // the form closes the window itself, after Form_Unload
    if (form_) form_->Unload();
}

// Enter presses the button that has the focus, else the default button the way Alt+letter presses one: the
// focus goes there first, with Validate.
void FormWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) return QDialog::keyPressEvent(event);
    if (auto* focused = qobject_cast<QPushButton*>(focusWidget())) return focused->click();
    for (QPushButton* button : findChildren<QPushButton*>()) {
        Control* const control = Control::Of(button);
        if (!button->isDefault() || !button->isVisible() || !button->isEnabled() || !control) continue;
        if (MoveFocus(*control)) button->click();
        return;
    }
}

void FormWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (form_ && isVisible()) RunEvent(this, [this] { form_->Form_Resize(); });
}

// What was resized before it was shown is told now, as at any first showing.
void FormWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (form_ && !event->spontaneous()) RunEvent(this, [this] { form_->Form_Resize(); });
}

// A window without a frame is moved by its background: by the system where that can do it.
void FormWindow::mousePressEvent(QMouseEvent* event) {
    QDialog::mousePressEvent(event);
    const bool frameless = windowFlags() & Qt::FramelessWindowHint;
    if (!frameless || event->button() != Qt::LeftButton) return;
    event->accept();
    if (!windowHandle()->startSystemMove()) grip_ = event->globalPosition().toPoint() - pos();
}

void FormWindow::mouseMoveEvent(QMouseEvent* event) {
    QDialog::mouseMoveEvent(event);
    const bool held = event->buttons() & Qt::LeftButton;
    if (!grip_.isNull() && held) return move(event->globalPosition().toPoint() - grip_);
    grip_ = {};
    if (form_) RunEvent(this, [this] { form_->Form_MouseMove(); });
}

}  // namespace forms
