#pragma once

#include <QObject>
#include <QPointer>

class QEvent;
class QKeyEvent;
class QWidget;

namespace forms {

class Control;
class FormWindow;

// Watches the events of all forms' windows and carries out what the toolkit does otherwise: a mouse press or
// an Alt+letter moves the focus first, with Validate, and is dropped if that holds it; Ctrl+letter goes to
// the form before the control; a key that closes a dropped list does nothing else.
class EventRouter : public QObject {
  public:
    static void Install();  // once for the running application

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    bool HasClosedAList(const QEvent& event);
    static bool IsForAClosedList(QObject& object, QEvent& event);
    static bool OnKey(FormWindow& window, QWidget& widget, const QKeyEvent& key);
    static bool EditEnded(FormWindow& window, bool (Control::*by)());
    static bool OnPress(FormWindow& window, QWidget& widget);
    static bool OnMnemonic(FormWindow& window, QWidget& widget, bool ambiguous);
    static void OnFocusIn(FormWindow& window, QWidget& widget, Qt::FocusReason reason);

    QPointer<QWidget> asked_;  // the dropped list that was asked about the key that is on its way
    quint64 askedAt_ = 0;
};

}  // namespace forms
