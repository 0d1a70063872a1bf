#include "bench/Screens.h"

#include <QApplication>
#include <stdexcept>

#include "platform/forms/window/Script.h"

extern "C" void qmAttachScreens();

namespace bench {

void AttachScreens() {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qmAttachScreens();
}

void Draw() {
    QApplication::processEvents();
}

void Visit(const std::string& form, const std::function<void()>& show,
           const std::function<void(forms::Form&)>& visit) {
    forms::Script script([](const std::string& fault) { throw std::runtime_error(fault); });
    script.Modal(form, [&](forms::Form& shown) {
        Draw();
        if (visit) visit(shown);
    });
    show();
}

}  // namespace bench
