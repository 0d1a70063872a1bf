#include "shell/EntryChecks.h"

#include "core/Boxes.h"
#include "core/GeneralUtils.h"
#include "core/modGeneral.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {

bool IsInYear(basic::Date date, RangeNamed named) {
    const std::int16_t year = basic::ToInteger(basic::Value(shared().FinYear));
    if (IsDateInFinYear(date, year)) return true;
    const int first = named == RangeNamed::YearBefore ? year - 1 : year;
    Tell("Please select the date in Financial Year range \r\n\r\n'01-Apr-" + std::to_string(first) +
         "' to '31-Mar-" + std::to_string(first + 1) + "'");
    return false;
}

bool DateIsInYear(forms::DTPicker& date) {
    if (IsInYear(date.Value(), RangeNamed::YearBefore)) return true;
    date.SetFocus();
    date.OpenList();
    return false;
}

bool IsChosen(forms::ComboBox& box, const char* message) {
    if (!box.Text().empty()) return true;
    Tell(message);
    box.SetFocus();
    box.OpenList();
    return false;
}

bool IsFilled(forms::TextBox& box, const char* message) {
    if (!basic::Trim(box.Text()).empty()) return true;
    Tell(message);
    box.SetFocus();
    return false;
}

void KeepFigures(int& keyAscii, TypedSign sign) {
    const bool digit = keyAscii >= '0' && keyAscii <= '9';
    const bool minus = keyAscii == '-' && sign == TypedSign::Minus;
    if (!digit && !minus && keyAscii != '.' && keyAscii != forms::vbKeyBack) keyAscii = 0;
}

bool IsQuantity(const std::string& text, const char* message) {
    const std::string trimmed = basic::Trim(text);
    if (trimmed.empty() || basic::IsNumeric(trimmed)) return true;
    Tell(message);
    return false;
}

}  // namespace qm
