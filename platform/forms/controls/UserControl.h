#pragma once

#include <memory>

#include "platform/forms/controls/Control.h"

namespace forms {

// A control made of others, drawn by the designer like a form: `class ucAddPanel : public
// forms::UserControlOf<Ui::ucAddPanel>`. Its parts belong to it, not to the form: the form's Controls do not
// list them.
class UserControl : public QWidget, public Control {
  public:
    explicit UserControl(QWidget* parent) : QWidget(parent), Control(this, Focus::Never), EnterFocus(this) {}

    std::string TypeName() const override { return "UserControl"; }

    // The user control that the widget is or is a part of; null if none.
    static UserControl* Around(QWidget* widget) {
        for (; widget; widget = widget->parentWidget())
            if (auto* control = dynamic_cast<UserControl*>(widget)) return control;
        return nullptr;
    }

    Event<> EnterFocus;  // the focus came from outside to one of its parts; before that part's GotFocus
};

template <class UiClass>
class UserControlOf : public UserControl {
  public:
    explicit UserControlOf(QWidget* parent) : UserControl(parent) { ui_.setupUi(this); }
    UiClass& ui() { return ui_; }

  private:
    UiClass ui_;
};

}  // namespace forms
