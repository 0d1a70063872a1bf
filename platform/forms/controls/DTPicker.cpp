#include "platform/forms/controls/DTPicker.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>
#include <utility>

#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "platform/forms/controls/Keys.h"
#include "platform/forms/controls/Text.h"

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
    FinishTyping();
    interpretText();
    return basic::MakeDate(date().year(), date().month(), date().day());
}

void DTPicker::SetValue(basic::Date value) {
    const auto parts = basic::Parts(value);
    FinishTyping();
    setDate(QDate(parts.Year, parts.Month, parts.Day));
    if (hasFocus()) StartOver();
}

void DTPicker::StartOver() {
    ToPart(DaySection);
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
    if (OpensList(*event)) return OpenList();
    const QChar key = event->text().size() == 1 ? event->text().front() : QChar();
    if (key.isLetterOrNumber()) return TypeInto(currentSection(), key);
    if (!key.isNull() && QStringLiteral("-/., ").contains(key)) {
        if (!std::exchange(movedOn_, false))
            ToPart(currentSection() == DaySection ? MonthSection : YearSection);
        return;
    }
    if (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete) return FinishTyping();
    FinishTyping();
    QDateEdit::keyPressEvent(event);
}

void DTPicker::focusOutEvent(QFocusEvent* event) {
    FinishTyping();
    QDateEdit::focusOutEvent(event);
}

// The toolkit's own typing knows no months by number and makes 31-Mar of a day in November the 30th.
void DTPicker::TypeInto(Section part, QChar key) {
    movedOn_ = false;
    if (date() != shown_) day_ = date().day();
    if (part == DaySection && key.isLetter()) ToPart(part = MonthSection);
    if (part == DaySection)
        TypeDay(key);
    else if (part == MonthSection)
        TypeMonth(key);
    else
        TypeYear(key);
}

void DTPicker::TypeDay(QChar key) {
    const int day = (typed_ + key).toInt();
    if (day > 31) return;
    typed_ += key;
    if (day == 0) return;
    day_ = day;
    Become(date().year(), date().month());
    if (typed_.size() == 2 || day > 3) MoveOn(MonthSection);
}

void DTPicker::TypeMonth(QChar key) {
    const QString typed = typed_ + key;
    int month = typed.toInt();
    for (int named = 12; key.isLetter() && named > 0; --named)
        if (locale().monthName(named).startsWith(typed, Qt::CaseInsensitive)) month = named;
    if (month > 12 || (month == 0 && typed != "0")) return;
    typed_ = typed;
    if (month == 0) return;
    Become(date().year(), month);
    if (key.isLetter() ? typed_.size() == 3 : typed_.size() == 2 || month > 1) MoveOn(YearSection);
}

void DTPicker::TypeYear(QChar key) {
    if (!key.isDigit()) return;
    typed_ += key;
    if (typed_.size() == 4) return FinishTyping();
    const QSignalBlocker quiet(lineEdit());
    lineEdit()->setText(date().toString("dd-").append(locale().toString(date(), "MMM-")) + typed_);
}

void DTPicker::Become(int year, int month) {
    shown_ = QDate(year, month, qMin(day_, QDate(year, month, 1).daysInMonth()));
    const Section part = currentSection();
    setDate(shown_);
    setSelectedSection(part);
}

// A part that is full is left by itself; the separator that many type then has done its work.
void DTPicker::MoveOn(Section part) {
    ToPart(part);
    movedOn_ = true;
}

void DTPicker::ToPart(Section part) {
    FinishTyping();
    setSelectedSection(part);
}

// A year of two digits is read as everywhere in dates; one of another length than four is given up.
void DTPicker::FinishTyping() {
    movedOn_ = false;
    const QString typed = std::exchange(typed_, {});
    if (typed.isEmpty() || currentSection() != YearSection) return;
    const int year = typed.size() == 4   ? typed.toInt()
                     : typed.size() == 2 ? basic::Parts(basic::ReadDate("1-Jan-" + FromQt(typed))).Year
                                         : 0;
    if (year >= minimumDate().year()) return Become(year, date().month());
    const QSignalBlocker quiet(lineEdit());
    lineEdit()->setText(textFromDateTime(dateTime()));
    setSelectedSection(YearSection);
}

void DTPicker::mousePressEvent(QMouseEvent* event) {
    FinishTyping();
    QDateEdit::mousePressEvent(event);
}

void DTPicker::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

// The toolkit's own way goes through day, month and year first.
bool DTPicker::focusNextPrevChild(bool next) {
    return QWidget::focusNextPrevChild(next);
}

}  // namespace forms
