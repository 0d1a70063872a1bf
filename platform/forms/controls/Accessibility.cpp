#include "platform/forms/controls/Accessibility.h"

#include <QAccessible>
#include <QGroupBox>

#include "platform/forms/controls/Control.h"
#include "platform/forms/controls/Text.h"

namespace forms {
namespace {

bool IsNamed(QWidget& widget) {
    const QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&widget);
    return seen && !seen->text(QAccessible::Name).isEmpty();
}

// A tool tip reads "Save      Ctrl+S": what stands before the run of blanks.
QString FromToolTip(const QWidget& widget) {
    return widget.toolTip().section("  ", 0, 0).trimmed();
}

QString FromFrame(const QWidget& widget) {
    for (const QWidget* around = widget.parentWidget(); around; around = around->parentWidget())
        if (const auto* frame = qobject_cast<const QGroupBox*>(around))
            return WithoutMnemonic(frame->title());
    return WithoutMnemonic(widget.window()->windowTitle());
}

}  // namespace

void NameForAssistance(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* control = dynamic_cast<Control*>(widget);
        if (!control || !control->TakesFocus() || IsNamed(*widget)) continue;
        const QString name = FromToolTip(*widget);
        widget->setAccessibleName(name.isEmpty() ? FromFrame(*widget) : name);
    }
}

}  // namespace forms
