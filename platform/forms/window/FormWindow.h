#pragma once

#include <QDialog>
#include <QPointer>

class QEventLoop;

namespace forms {

class Control;
class Form;

// The window of a loaded form. It keeps which control has the focus, and how many of the form's events are
// running.
//
// How the focus moves: all ways end in Transfer, which alone sets Active() and fires.
//
//   Tab, click, Alt+letter, Enter      the toolkit has moved it      the active control was
//   on the default button, SetFocus    by itself                     disabled or hidden
//             |                                 |                              |
//         MoveFocus                           Adopt                      LeaveDisabled
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
class FormWindow : public QDialog {
  public:
    explicit FormWindow(Form& form);

    Form* Owner() const { return form_; }  // null once the form has let go of the window
    Control* Active() const;               // the control that has the focus as the form sees it

    // Gives the focus to `target` by the rules of Control::SetFocus. False if it was held or went elsewhere
    // by Validate.
    bool MoveFocus(Control& target, Qt::FocusReason reason = Qt::OtherFocusReason);
    // Gives it to the first control in tab order, with its GotFocus, if none has it.
    void FocusFirst();
    // The focus left the active control without being asked for (it was disabled or hidden, or the toolkit
    // moved it).
    void Adopt(Control& control);
    void LeaveDisabled();

    static FormWindow* Of(QWidget* widget);  // the form's window that the widget is in; null if none

    void reject() override;  // Esc: the form's affair

  protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    friend class Form;
    friend class EventScope;

    Control* Neighbour(bool next) const;
    bool LetGo(Control& active, QPointer<QWidget>& destination);
    void Transfer(Control& target, Qt::FocusReason reason);

    Form* form_;
    QPointer<QWidget> active_;
    QPointer<QWidget> wanted_;  // where a SetFocus inside Validate wants to go
    bool validating_ = false;
    bool transferring_ = false;
    bool activating_ = false;  // between show and the first GotFocus
    int runningEvents_ = 0;
    bool unloadWanted_ = false;
    QEventLoop* modalLoop_ = nullptr;
    QPoint grip_;  // where in the window the mouse drags it
};

}  // namespace forms
