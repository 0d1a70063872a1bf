#pragma once

#include <string>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/window/Form.h"

namespace forms {

// The controls that share a name and are told apart by an index: `ControlArray<TextBox> Text1{*this,
// "Text1"}` gives `Text1(3)`. In the designer they are called Text1_1, Text1_2 and so on.
template <class T>
class ControlArray {
  public:
    ControlArray(Form& form, std::string name) : form_(&form), name_(std::move(name)) {}
    ControlArray(QWidget& userControl, std::string name) : parent_(&userControl), name_(std::move(name)) {}

    // Loads the form if it is unloaded. Raises 340 where the array has no such control.
    T& operator()(int index) const {
        if (form_) form_->EnsureLoaded();
        const QWidget& parent = form_ ? *form_->Window() : *parent_;
        const std::string name = name_ + '_' + std::to_string(index);
        T* const control = dynamic_cast<T*>(parent.findChild<QWidget*>(ToQt(name)));
        if (!control)
            throw basic::Error(340, "Control array element '" + std::to_string(index) + "' doesn't exist",
                               "forms");
        return *control;
    }

  private:
    Form* form_ = nullptr;
    QWidget* parent_ = nullptr;
    std::string name_;
};

}  // namespace forms
