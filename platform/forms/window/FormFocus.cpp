#include "platform/forms/window/FormFocus.h"

#include <QRadioButton>

#include "platform/forms/controls/Button.h"
#include "platform/forms/controls/UserControl.h"

namespace forms {
namespace {

bool CanHaveFocus(const Control& control) {
    const QWidget* widget = control.Widget();
    return control.TakesFocus() && widget->isEnabled() && widget->isVisibleTo(widget->window());
}

// Whether Tab, and the focus of a form that opens, may come to it: of a group of options to the chosen one,
// or to any where none is chosen.
bool IsTabStop(const Control& control) {
    const auto* const option = dynamic_cast<const OptionButton*>(&control);
    if (option && option->Value()) return true;
    if (option)
        for (const auto* other :
             option->parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly))
            if (other->isChecked() && other->isEnabled() && !other->isHidden()) return false;
    return control.Widget()->focusPolicy() & Qt::TabFocus;
}

// The first control that can have the focus, in tab order, inside `container`; null if none.
Control* FirstIn(QWidget* container) {
    QWidget* const start = container->window();
    for (QWidget* widget = start->nextInFocusChain(); widget != start; widget = widget->nextInFocusChain()) {
        auto* control = dynamic_cast<Control*>(widget);
        if (control && container->isAncestorOf(widget) && CanHaveFocus(*control) && IsTabStop(*control))
            return control;
    }
    return nullptr;
}

class Flag {
  public:
    explicit Flag(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~Flag() { flag_ = before_; }

  private:
    bool& flag_;
    const bool before_;
};

}  // namespace

Control* FormFocus::Active() const {
    return active_ ? Control::Of(active_) : nullptr;
}

bool FormFocus::Move(Control& target, Qt::FocusReason reason) {
    if (!CanHaveFocus(target)) {  // a container hands it on to its first control
        Control* const first = FirstIn(target.Widget());
        if (first) return Move(*first, reason);
        if (auto* user = dynamic_cast<UserControl*>(&target)) user->EnterFocus.Fire();
        return false;
    }
    if (validating_) {
        wanted_ = target.Widget();
        return false;
    }
    Control* const active = Active();
    if (active == &target) {
        if (!target.Widget()->isAncestorOf(window_.focusWidget()))
            target.Widget()->setFocus(Qt::OtherFocusReason);
        return true;
    }
    QPointer<QWidget> destination = target.Widget();
    const QPointer<QWidget> alive = &window_;
    const bool goes = !active || !CanHaveFocus(*active) || LetGo(*active, destination);
    if (!alive || ended_) return false;
    if (Control* control = destination ? Control::Of(destination) : nullptr; control && control != Active())
        Transfer(*control, goes ? reason : Qt::OtherFocusReason);
    return goes;
}

// Asks the active control whether the focus may leave; `destination` comes back as where it goes now. False
// if it does not go where it was sent.
bool FormFocus::LetGo(Control& active, QPointer<QWidget>& destination) {
    const QPointer<QWidget> sent = destination;
    bool hold = false;
    {
        const Flag validating(validating_);
        wanted_ = nullptr;
        hold = !active.FinishEdit();
        if (!hold) active.Validate.Fire(hold);
    }
    if (wanted_) {
        destination = wanted_;
    } else if (hold) {
        destination = active.Widget();
    }
    wanted_ = nullptr;
    if (destination == active.Widget()) {
        destination->setFocus(Qt::OtherFocusReason);
        active.StartOver();
    }
    return destination == sent;
}

void FormFocus::Transfer(Control& target, Qt::FocusReason reason) {
    const QPointer<QWidget> before = active_;
    const QPointer<QWidget> after = target.Widget();
    {
        const Flag transferring(transferring_);
        after->setFocus(reason);
    }
    active_ = after;
    if (before) Control::Of(before)->LostFocus.Fire();
    if (active_ != after || !after) return;  // LostFocus sent it elsewhere
    UserControl* const user = UserControl::Around(after);
    if (user && !(before && user->isAncestorOf(before))) user->EnterFocus.Fire();
    if (active_ == after && after) Control::Of(after)->GotFocus.Fire();
}

void FormFocus::First() {
    if (Active()) return;
    if (Control* first = FirstIn(&window_)) Transfer(*first, Qt::TabFocusReason);
}

void FormFocus::Adopt(Control& control) {
    if (validating_ || transferring_ || showing_ || &control == Active() || !control.TakesFocus()) return;
    Transfer(control, Qt::OtherFocusReason);
}

void FormFocus::LeaveDisabled() {
    if (!active_ || validating_) return;
    if (Control* neighbour = Neighbour(true)) Transfer(*neighbour, Qt::OtherFocusReason);
}

Control* FormFocus::Neighbour(bool next) const {
    const auto step = [next](QWidget* widget) {
        return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    QWidget* const start = active_ ? active_.data() : &window_;
    for (QWidget* widget = step(start); widget != start; widget = step(widget)) {
        auto* control = dynamic_cast<Control*>(widget);
        if (control && CanHaveFocus(*control) && IsTabStop(*control)) return control;
    }
    return nullptr;
}

// The toolkit comes here, too, when the widget that has the focus was disabled or hidden.
bool FormFocus::Step(bool next) {
    Control* const active = Active();
    if (validating_ || showing_) return true;
    if (active && !CanHaveFocus(*active)) {
        LeaveDisabled();
        return true;
    }
    Control* const neighbour = Neighbour(next);
    if (neighbour) Move(*neighbour, Qt::TabFocusReason);  // back, too: a text or date is entered alike
    return neighbour != nullptr;
}

}  // namespace forms
