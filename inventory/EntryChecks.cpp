#include "inventory/EntryChecks.h"

#include "core/Boxes.h"
#include "core/GeneralUtils.h"
#include "core/modGeneral.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {

bool DateIsInYear(forms::DTPicker& date) {
    const std::int16_t year = basic::ToInteger(basic::Value(shared().FinYear));
    if (IsDateInFinYear(date.Value(), year)) return true;
    Tell(FinYearRangeText(year - 1));
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

void KeepFigures(int& keyAscii) {
    const bool digit = keyAscii >= '0' && keyAscii <= '9';
    if (!digit && keyAscii != '.' && keyAscii != forms::vbKeyBack) keyAscii = 0;
}

bool IsQuantity(const std::string& text, const char* message) {
    const std::string trimmed = basic::Trim(text);
    if (trimmed.empty() || basic::IsNumeric(trimmed)) return true;
    Tell(message);
    return false;
}

}  // namespace qm
