#include "platform/forms/window/EventRouter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QWindow>
#include <string_view>
#include <utility>

#include "platform/forms/controls/Control.h"
#include "platform/forms/window/FormWindow.h"

namespace forms {
namespace {

// The capital letter of a key, 0 for any other key. A key of a layout without Latin letters stands for the
// letter at its place, by the system's scan codes, so that Ctrl+S saves on any keyboard.
int LetterOf(const QKeyEvent& key) {
    if (key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z) return key.key();
    if (key.key() <= 0xFF || key.key() >= Qt::Key_Escape) return 0;
    static constexpr struct {
        quint32 first;
        std::string_view letters;
    } rows[] = {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};
    for (const auto& row : rows)
        if (const quint32 place = key.nativeScanCode() - row.first; place < row.letters.size())
            return row.letters[place];
    return 0;
}

// AltGr is no Ctrl: some systems report it as Ctrl and Alt together, some as a group switch.
bool IsCtrlLetter(const QKeyEvent& key) {
    const auto modifiers = key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    return modifiers == Qt::ControlModifier && LetterOf(key) != 0;
}

}  // namespace

void EventRouter::Install() {
    static QPointer<QObject> installed;
    if (installed) return;
    installed = new EventRouter;
    installed->setParent(QCoreApplication::instance());
    QCoreApplication::instance()->installEventFilter(installed);
}

// A dropped list closes when it is asked whether a key is a shortcut; the press itself comes after that, and
// then goes to the window that the system holds for active. That is the form's, and no longer the list's,
// where the list was dropped while the form was still on its way back from a box: Enter would choose a line
// and press the default button as well.
bool EventRouter::HasClosedAList(const QEvent& event) {
    if (event.type() != QEvent::ShortcutOverride && event.type() != QEvent::KeyPress) return false;
    const quint64 time = static_cast<const QKeyEvent&>(event).timestamp();
    if (event.type() == QEvent::KeyPress) {
        const QPointer<QWidget> list = std::exchange(asked_, nullptr);
        return list && !list->isVisible() && time == askedAt_ && FormWindow::Of(list->parentWidget());
    }
    // Who does not use the question passes it on to its parent, when the list may be closed already.
    QWidget* const list = QApplication::activePopupWidget();
    if (list || time != askedAt_) asked_ = list;
    askedAt_ = time;
    return false;
}

// What is typed right behind such a key still comes to the window of the list, until the system has given the
// keyboard back: it belongs to the form.
bool EventRouter::IsForAClosedList(QObject& object, QEvent& event) {
    const auto type = event.type();
    const bool isKey =
        type == QEvent::ShortcutOverride || type == QEvent::KeyPress || type == QEvent::KeyRelease;
    if (!isKey || !object.isWindowType()) return false;
    const QWidget* const list = QWidget::find(static_cast<QWindow&>(object).winId());
    if (!list || list->isVisible() || list->windowType() != Qt::Popup) return false;
    const FormWindow* const form = FormWindow::Of(list->parentWidget());
    if (!form) return false;
    QCoreApplication::sendEvent(form->windowHandle(), &event);
    return true;
}

bool EventRouter::eventFilter(QObject* object, QEvent* event) {
    if (HasClosedAList(*event) || IsForAClosedList(*object, *event)) return true;
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::Shortcut:
        case QEvent::FocusIn:
        case QEvent::EnabledChange:
            break;
        default:
            return false;
    }
    if (!object->isWidgetType()) return false;
    QWidget& widget = *static_cast<QWidget*>(object);
    FormWindow* const window = FormWindow::Of(&widget);
    if (!window || !window->Owner()) return false;
    switch (event->type()) {
        case QEvent::KeyPress:
            return OnKey(*window, widget, *static_cast<QKeyEvent*>(event));
        case QEvent::Shortcut:
            return OnMnemonic(*window, widget, static_cast<QShortcutEvent*>(event)->isAmbiguous());
        case QEvent::FocusIn:
            OnFocusIn(*window, widget, static_cast<QFocusEvent*>(event)->reason());
            return false;
        case QEvent::EnabledChange:
            if (Control* active = window->Active();
                active && active->Widget() == &widget && !widget.isEnabled())
                window->Focus().LeaveDisabled();
            return false;
        default:
            return OnPress(*window, widget);
    }
}

// An unused key travels up through the parents; the form sees it once, on its way to the widget that has the
// focus. Letters without a command belong to an editor that is open, as marking, copying and undoing do.
bool EventRouter::OnKey(FormWindow& window, QWidget& widget, const QKeyEvent& key) {
    const QWidget* focused = window.focusWidget() ? window.focusWidget() : &window;
    if (&widget != focused || !IsCtrlLetter(key)) return false;
    Control* const active = window.Active();
    if (active && active->Editing() && !window.Owner()->HasCommand(LetterOf(key))) return false;
    const QPointer<FormWindow> form = &window;
    const QPointer<QWidget> target = &widget;
    if (!EditEnded(window, &Control::YieldEdit)) return true;
    const int shift = vbCtrlMask + (key.modifiers() & Qt::ShiftModifier ? vbShiftMask : 0);
    RunEvent(form, [&] { form->Owner()->Form_KeyDown(LetterOf(key), shift); });
    return !form || !form->Owner() || !target || form->focusWidget() != target;
}

// False if an edit that is open stops what was asked for, or took the form with it.
bool EventRouter::EditEnded(FormWindow& window, bool (Control::*by)()) {
    const QPointer<FormWindow> form = &window;
    bool goesOn = true;
    if (Control* active = window.Active()) RunEvent(&window, [&] { goesOn = (active->*by)(); });
    return goesOn && form && form->Owner();
}

bool EventRouter::OnPress(FormWindow& window, QWidget& widget) {
    Control* const control = Control::Of(&widget);
    if (!control || !control->TakesFocus() || !control->Widget()->isEnabled()) return false;
    return !window.MoveFocus(*control, Qt::MouseFocusReason);
}

// It leaves an edit that is open, as a click elsewhere does. A letter that two controls share only moves the
// focus, from one to the other.
bool EventRouter::OnMnemonic(FormWindow& window, QWidget& widget, bool ambiguous) {
    auto* const control = dynamic_cast<Control*>(&widget);
    if (!control) return false;
    if (!EditEnded(window, &Control::FinishEdit)) return true;
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
        if (window.MoveFocus(*control, Qt::ShortcutFocusReason) && !ambiguous) button->click();
        return true;
    }
    const auto* label = qobject_cast<QLabel*>(&widget);
    Control* const target = label ? Control::Of(label->buddy()) : control;
    if (target) window.MoveFocus(*target, Qt::ShortcutFocusReason);
    return true;
}

void EventRouter::OnFocusIn(FormWindow& window, QWidget& widget, Qt::FocusReason reason) {
    const bool betweenWindows = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                                reason == Qt::MenuBarFocusReason;
    Control* const control = Control::Of(&widget);
    if (control && !betweenWindows) window.Focus().Adopt(*control);
}

}  // namespace forms
