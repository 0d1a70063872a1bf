#include "platform/forms/controls/Accessibility.h"

#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

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

QString FromLabel(const QWidget& widget) {
    for (const auto* label : widget.parentWidget()->findChildren<QLabel*>())
        if (label->buddy() == &widget) return WithoutMnemonic(label->text());
    return {};
}

// A box with a text that is typed has a field of its own for it, which takes the focus.
void NameTypedText(QWidget& widget) {
    const auto* const box = qobject_cast<QComboBox*>(&widget);
    if (!box || !box->lineEdit()) return;
    QString name = FromLabel(widget);
    if (name.isEmpty()) name = widget.accessibleName();
    box->lineEdit()->setAccessibleName(name.isEmpty() ? FromFrame(widget) : name);
}

}  // namespace

void NameForAssistance(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* control = dynamic_cast<Control*>(widget);
        if (!control || !control->TakesFocus()) continue;
        if (!IsNamed(*widget)) {
            const QString name = FromToolTip(*widget);
            widget->setAccessibleName(name.isEmpty() ? FromFrame(*widget) : name);
        }
        NameTypedText(*widget);
    }
}

}  // namespace forms
