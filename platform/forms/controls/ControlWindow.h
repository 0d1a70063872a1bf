#pragma once

#include <Qt>

class QWidget;

namespace forms {

class Control;

// A form's window as its controls know it: it minds where the focus is, and how many events are running.
class ControlWindow {
  public:
    static ControlWindow* Of(QWidget* widget);  // the one that the widget is in; null if none

    virtual Control* Active() const = 0;  // the control that has the focus as the form sees it
    // Gives the focus to `target` by the rules of Control::SetFocus. False if it was held or went elsewhere
    // by Validate.
    virtual bool MoveFocus(Control& target, Qt::FocusReason reason = Qt::OtherFocusReason) = 0;

    virtual bool TakesEvents() const = 0;  // false once the form has let go of it
    virtual void EventBegins() = 0;
    virtual void EventEnded() = 0;  // may unload the form and destroy the window

  protected:
    ~ControlWindow() = default;
};

}  // namespace forms
