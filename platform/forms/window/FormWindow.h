#pragma once

#include <QDialog>
#include <vector>

#include "platform/forms/controls/ControlWindow.h"
#include "platform/forms/window/FormFocus.h"

class QEventLoop;

namespace forms {

class Form;

// A form as its window knows it: what the window hands on.
class WindowOwner {
  public:
    virtual void Unload() = 0;
    virtual bool HasCommand(int keyCode) = 0;  // whether Ctrl and the capital letter do something
    virtual void Form_KeyDown(int keyCode, int shift) = 0;
    virtual void Form_Escape() = 0;
    virtual void Form_Resize() = 0;
    virtual void Form_MouseMove() = 0;

  protected:
    ~WindowOwner() = default;
};

// The window of a loaded form. It minds the focus, and how many of the form's events are running.
class FormWindow : public QDialog, public ControlWindow {
  public:
    explicit FormWindow(WindowOwner& form);

    WindowOwner* Owner() const { return form_; }  // null once the form has let go of the window
    FormFocus& Focus() { return focus_; }

    static FormWindow* Of(QWidget* widget);  // the form's window that the widget is in; null if none
    static FormWindow* Topmost();            // the one that was shown last; null if none

    Control* Active() const override { return focus_.Active(); }
    bool MoveFocus(Control& target, Qt::FocusReason reason = Qt::OtherFocusReason) override;
    bool TakesEvents() const override { return form_ != nullptr; }
    void EventBegins() override { ++runningEvents_; }
    void EventEnded() override;

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

    static std::vector<FormWindow*>& Shown();  // the topmost last
    void LetGoOfForm();

    WindowOwner* form_;
    FormFocus focus_;
    int runningEvents_ = 0;
    bool unloadWanted_ = false;
    QEventLoop* modalLoop_ = nullptr;
    QPoint grip_;  // where in the window the mouse drags it
};

}  // namespace forms
