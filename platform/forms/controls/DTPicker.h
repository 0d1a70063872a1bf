#pragma once

#include <QDateEdit>

#include "platform/basic/Value.h"
#include "platform/forms/controls/Control.h"

namespace forms {

// A box for a date, shown as "dd-MMM-yyyy" with English month names, with a calendar to choose from. It
// starts at today. Setting Value fires nothing; typing then begins with the day again. Left and Right go from
// part to part, Tab goes on to the next control. A date may be typed straight through: "31-3-2002",
// "31Mar2002", "31032002".
class DTPicker : public QDateEdit, public Control {
  public:
    explicit DTPicker(QWidget* parent);

    std::string TypeName() const override { return "DTPicker"; }
    basic::Date Value();  // without a time of day; a date typed half reads as the last whole one
    using Control::SetValue;
    void SetValue(basic::Date date);
    void OpenList();            // the calendar, as the keys F4 and Alt+Down do
    void StartOver() override;  // with the day

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void TypeInto(QDateTimeEdit::Section part, QChar key);
    void TypeDay(QChar key);
    void TypeMonth(QChar key);
    void TypeYear(QChar key);
    void Become(int year, int month);
    void MoveOn(QDateTimeEdit::Section part);
    void ToPart(QDateTimeEdit::Section part);
    void FinishTyping();

    QString typed_;         // of the part that the cursor is in
    int day_ = 0;           // as it was typed: a month without it shows its last day
    QDate shown_;           // what typing made of the date
    bool movedOn_ = false;  // by itself, from a part that was full
};

}  // namespace forms
