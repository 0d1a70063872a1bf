#include "reports/DateRange.h"

#include "core/Boxes.h"
#include "core/DBCode.h"
#include "core/modGeneral.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "shell/EntryChecks.h"

namespace qm {
namespace {

std::int16_t CurrentYear() {
    return basic::ToInteger(shared().FinYear);
}

}  // namespace

DateRange::DateRange(forms::DTPicker& from, forms::DTPicker& upto, std::function<basic::Date()> uptoReset)
    : from_(from), upto_(upto) {
    from_.Validate = [range = *this](bool& cancel) {
        range.Refuse(range.from_, FirstOfYear(), "From Date cannot be more than To Date", cancel);
    };
    upto_.Validate = [range = *this, reset = std::move(uptoReset)](bool& cancel) {
        range.Refuse(range.upto_, reset(), "To Date cannot be less than From Date", cancel);
    };
}

void DateRange::Refuse(forms::DTPicker& picker, basic::Date reset, const char* disorder, bool& cancel) const {
    cancel = true;
    if (!IsInYear(picker.Value(), RangeNamed::CurrentYear)) {
        picker.SetValue(reset);
    } else if (basic::DaysBetween(upto_.Value(), from_.Value()) >= 1) {
        Tell(disorder);
    } else {
        cancel = false;
    }
}

std::int32_t DateRange::From() const {
    return basic::ToLong(DateNumber(from_.Value()));
}
std::int32_t DateRange::Upto() const {
    return basic::ToLong(DateNumber(upto_.Value()));
}

basic::Date DateRange::FirstOfYear() {
    return basic::MakeDate(CurrentYear(), 4, 1);
}
basic::Date DateRange::LastOfYear() {
    return basic::MakeDate(CurrentYear() + 1, 3, 31);
}

}  // namespace qm
