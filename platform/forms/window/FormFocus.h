#pragma once

#include <QPointer>
#include <Qt>

class QWidget;

namespace forms {

class Control;

// How the focus moves: all ways end in Transfer, which alone sets Active() and fires.
//
//   Tab, click, Alt+letter, Enter      the toolkit has moved it      the active control was
//   on the default button, SetFocus    by itself                     disabled or hidden
//             |                                 |                              |
//           Move                              Adopt                      LeaveDisabled
//         - a container: its first control    - not while one of         - the next control
//         - inside a Validate: kept as          the others moves it        in tab order
//           `wanted_`, nothing moves            or the form is shown           |
//             |                                 |                              |
//           LetGo  asks the control that is left, and may turn the way:        |
//         - FinishEdit refused: it stays        |                              |
//         - Validate asked for another          |                              |
//           control by SetFocus: that one       |                              |
//         - Validate said Cancel: it stays      |                              |
//             |                                 |                              |
//             +-----------> Transfer <----------+------------------------------+
//                           1. the toolkit's focus goes (by Tab and Alt a text is selected)
//                           2. Active() is the new control
//                           3. LostFocus of the old one; a SetFocus in it ends this move
//                           4. EnterFocus of the user control that was entered
//                           5. GotFocus of the new one
//
// Between windows (a box, a list, another form or program) nothing moves: Active() stays, and FocusReturn
// gives the toolkit's focus back.
class FormFocus {
  public:
    explicit FormFocus(QWidget& window) : window_(window) {}

    Control* Active() const;  // the control that has the focus as the form sees it
    // False if it was held or went elsewhere by Validate, or the form was unloaded by it.
    bool Move(Control& target, Qt::FocusReason reason);
    // Tab and Backtab: to the next or the one before in tab order. False if there is none.
    bool Step(bool next);
    // Gives it to the first control in tab order, with its GotFocus, if none has it.
    void First();
    // The focus left the active control without being asked for (it was disabled or hidden, or the toolkit
    // moved it).
    void Adopt(Control& control);
    void LeaveDisabled();

    void SetShowing(bool showing) { showing_ = showing; }  // between show and the first GotFocus
    void End() { ended_ = true; }                          // the form has let go of the window

  private:
    Control* Neighbour(bool next) const;
    bool LetGo(Control& active, QPointer<QWidget>& destination);
    void Transfer(Control& target, Qt::FocusReason reason);

    QWidget& window_;
    QPointer<QWidget> active_;
    QPointer<QWidget> wanted_;  // where a SetFocus inside Validate wants to go
    bool validating_ = false;
    bool transferring_ = false;
    bool showing_ = false;
    bool ended_ = false;
};

}  // namespace forms
