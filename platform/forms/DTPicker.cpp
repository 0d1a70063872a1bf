#include "platform/forms/DTPicker.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>

#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"

namespace forms {

DTPicker::DTPicker(QWidget* parent) : QDateEdit(parent), Control(this, Focus::Takes) {
    setLocale(QLocale(QLocale::English));
    setCalendarPopup(true);
    setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    setDisplayFormat("dd-MMM-yyyy");
    SetValue(basic::Clock::Today());
    QCalendarWidget& calendar = *calendarWidget();
    calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar.setFirstDayOfWeek(Qt::Monday);
    for (const auto day : {Qt::Saturday, Qt::Sunday}) calendar.setWeekdayTextFormat(day, {});  // no red
    calendar.setMinimumSize(calendar.sizeHint() + QSize(40, 40));
}

basic::Date DTPicker::Value() {
    interpretText();
    return basic::MakeDate(date().year(), date().month(), date().day());
}

void DTPicker::SetValue(basic::Date value) {
    const auto parts = basic::Parts(value);
    setDate(QDate(parts.Year, parts.Month, parts.Day));
}

// The toolkit opens the calendar only by the mouse: a press on the arrow.
void DTPicker::OpenList() {
    if (!isEnabled() || !isVisible()) return;
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = true;
    option.subControls = QStyle::SC_All;
    const QRect arrow = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
    const QPointF place = arrow.center();
    QMouseEvent press(QEvent::MouseButtonPress, place, mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    mousePressEvent(&press);
    QMouseEvent release(QEvent::MouseButtonRelease, place, mapToGlobal(place), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    mouseReleaseEvent(&release);
}

void DTPicker::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F4 || (event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier))
        return OpenList();
    QDateEdit::keyPressEvent(event);
}

void DTPicker::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

// The toolkit's own way goes through day, month and year first.
bool DTPicker::focusNextPrevChild(bool next) {
    return QWidget::focusNextPrevChild(next);
}

}  // namespace forms
