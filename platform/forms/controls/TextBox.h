#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>
#include <optional>

#include "platform/forms/controls/Control.h"

namespace forms {

// A box for one line of text. Setting Text fires Change as typing does, but not for the same text again.
class TextBox : public QLineEdit, public Control {
  public:
    explicit TextBox(QWidget* parent);

    std::string TypeName() const override { return "TextBox"; }
    std::string Text() const;
    void SetText(const std::string& text) override;
    bool Locked() const { return isReadOnly(); }
    void SetLocked(bool locked) override;
    void SetBackColor(unsigned colour);  // 0xBBGGRR
    unsigned BackColor() const;

    void SelectText();  // all of it: what is typed next replaces it

    Event<> Change;
    Event<int&, int> KeyDown;  // code, shift; code 0 drops the key
    // Each typed character before it is taken; set to 0 it is dropped. Backspace comes as 8, Ctrl+letter as 1
    // to 26.
    Event<int&> KeyPress;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    std::optional<unsigned> backColor_;
};

// A text box of several lines, parted by "\r\n" in its Text.
class TextArea : public QPlainTextEdit, public Control {
  public:
    explicit TextArea(QWidget* parent);

    std::string TypeName() const override { return "TextBox"; }
    std::string Text() const;
    void SetText(const std::string& text) override;
    bool Locked() const { return isReadOnly(); }
    void SetLocked(bool locked) override { setReadOnly(locked); }

    Event<> Change;
};

}  // namespace forms
