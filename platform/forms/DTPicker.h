#pragma once

#include <QDateEdit>

#include "platform/basic/Value.h"
#include "platform/forms/Control.h"

namespace forms {

// A box for a date, shown as "dd-MMM-yyyy" with English month names, with a calendar to choose from. It
// starts at today. Setting Value fires nothing. Left and Right go from part to part, Tab goes on to the next
// control.
class DTPicker : public QDateEdit, public Control {
  public:
    explicit DTPicker(QWidget* parent);

    std::string TypeName() const override { return "DTPicker"; }
    basic::Date Value();  // without a time of day; a date typed half reads as the last whole one
    using Control::SetValue;
    void SetValue(basic::Date date);
    void OpenList();  // the calendar, as the keys F4 and Alt+Down do

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool focusNextPrevChild(bool next) override;
};

}  // namespace forms
