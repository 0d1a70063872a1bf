#pragma once

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/forms/controls/Control.h"

namespace forms {

// A push button; with an icon and no caption, a picture button.
class CommandButton : public QPushButton, public Control {
  public:
    explicit CommandButton(QWidget* parent);

    std::string TypeName() const override { return "CommandButton"; }
    std::string Caption() const;
    void SetCaption(const std::string& caption);

    Event<> Click;
};

// Value 0 or 1. Setting another Value fires Click as the mouse does.
class CheckBox : public QCheckBox, public Control {
  public:
    explicit CheckBox(QWidget* parent);

    std::string TypeName() const override { return "CheckBox"; }
    int Value() const { return isChecked() ? 1 : 0; }
    void SetValue(int value) override { setChecked(value != 0); }
    bool Locked() const { return locked_; }
    void SetLocked(bool locked) override { locked_ = locked; }

    Event<> Click;

  protected:
    void nextCheckState() override;

  private:
    bool locked_ = false;
};

// One of the options of its container: choosing it lets go of the others. Becoming True fires Click, also by
// code; a user's click on the chosen one fires it again. Becoming False fires nothing.
class OptionButton : public QRadioButton, public Control {
  public:
    explicit OptionButton(QWidget* parent);

    std::string TypeName() const override { return "OptionButton"; }
    bool Value() const { return isChecked(); }
    void SetValue(int value) override;  // 0 leaves the group without a choice, if this was it

    Event<> Click;

  private:
    bool fired_ = false;
};

}  // namespace forms
