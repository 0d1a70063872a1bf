#pragma once

#include <QWidget>
#include <string>

#include "platform/basic/Control.h"
#include "platform/forms/controls/Event.h"

namespace forms {

// Whether a control can hold the focus at all (a label cannot).
enum class Focus { Never, Takes };

// What all controls share. A control is a toolkit widget that is also a Control: `class TextBox : public
// QLineEdit, public Control`. Texts are UTF-8; places and sizes are in twips (1440 to an inch) relative to
// the container; colours are 0xBBGGRR, as the system writes them (255 is red).
class Control : public basic::Control {
  public:
    Control(QWidget* widget, Focus focus);

    std::string Name() const override;  // its objectName
    QWidget* Widget() const { return widget_; }

    bool Enabled() const;  // its own switch, whatever its container's says
    virtual void SetEnabled(bool enabled);
    bool Visible() const;  // its own switch: True on a form that is not shown yet
    void SetVisible(bool visible);
    std::string ToolTipText() const;
    void SetToolTipText(const std::string& text);

    int Left() const;
    int Top() const;
    int Width() const;
    int Height() const;
    void Move(int left, int top, int width, int height);  // of no use inside a layout

    // Gives it the focus. From another control of its form the other's Validate runs first and may hold it;
    // called inside a Validate it decides where the focus goes. A control that is disabled or hidden takes
    // none, and nothing happens.
    void SetFocus();
    bool TakesFocus() const { return focus_ == Focus::Takes; }
    // An edit that is open inside the control: a grid's cell, a tree's label. Its keys are the editor's, but
    // for the form's own commands.
    virtual bool Editing() const { return false; }
    // Completes it. False if it was refused: then the focus goes no further.
    virtual bool FinishEdit() { return true; }
    // Ends it because a command's key was pressed: False stops the command.
    virtual bool YieldEdit() { return FinishEdit(); }
    // What is typed next begins anew: the control has the focus and was refused, or got it once more.
    virtual void StartOver() {}

    // These fire only when the focus goes from one control to another: not for a drop-down list or a cell
    // editor of its own, a message box, another form or another program.
    Event<> GotFocus, LostFocus;
    Event<bool&> Validate;  // before the focus leaves; True holds it

    std::string Tag;  // free for the form's use

    // The control that the widget is or is a part of, such as the grid of a cell editor; null if none.
    static Control* Of(QWidget* widget);

  protected:
    void Restyle();  // once a property has changed that the style sheet asks about

  private:
    QWidget* widget_;
    Focus focus_;
};

// Twips are a 1440th of an inch: 15 to a pixel at 96 dots per inch. The widget says which screen's density
// counts.
int PixelsFromTwips(int twips, const QWidget* widget);
int TwipsFromPixels(int pixels, const QWidget* widget);

// A colour of the system (0xBBGGRR, or 0x8000000D for the highlight colour) as the toolkit names it, and
// back.
QColor ToColor(unsigned colour);
unsigned FromColor(const QColor& colour);

inline constexpr unsigned vbRed = 255;
inline constexpr unsigned vbWhite = 0xFFFFFF;
inline constexpr unsigned vbHighlight = 0x8000000D;

// Codes that reach KeyDown, KeyPress and KeyPressEdit.
inline constexpr int vbKeyBack = 8;
inline constexpr int vbKeyTab = 9;
inline constexpr int vbKeyReturn = 13;
inline constexpr int vbKeyEscape = 27;
inline constexpr int vbKeyLeft = 37;
inline constexpr int vbKeyUp = 38;
inline constexpr int vbKeyRight = 39;
inline constexpr int vbKeyDown = 40;
inline constexpr int vbKeyDelete = 46;
inline constexpr int vbShiftMask = 1;
inline constexpr int vbCtrlMask = 2;
inline constexpr int vbAltMask = 4;

}  // namespace forms
