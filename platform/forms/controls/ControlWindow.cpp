#include "platform/forms/controls/ControlWindow.h"

#include <QWidget>

namespace forms {

ControlWindow* ControlWindow::Of(QWidget* widget) {
    return widget ? dynamic_cast<ControlWindow*>(widget->window()) : nullptr;
}

}  // namespace forms
