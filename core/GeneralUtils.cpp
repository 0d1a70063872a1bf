#include "core/GeneralUtils.h"

#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

bool HoldsEntry(const std::string& type) {
    return type == "TextBox" || type == "CheckBox" || type == "ComboBox" || type == "RichTextBox";
}

void SetAllLocked(basic::ControlHost& form, bool locked) {
    for (basic::Control* control : form.Controls()) {
        if (!HoldsEntry(control->TypeName())) continue;
        // Unlocking empties a combo box's selection as a side effect; the screens rely on setting it again.
        // Kept 2.
        if (!locked && control->TypeName() == "ComboBox") SkipOnError([&] { control->SetListIndex(-1); });
        SkipOnError([&] { control->SetLocked(locked); });
    }
}

void ClearControl(basic::Control& control) {
    const std::string type = control.TypeName();
    if (type == "CheckBox") SkipOnError([&] { control.SetValue(0); });
    if (type == "ComboBox") SkipOnError([&] { control.SetListIndex(-1); });
    if (type == "TextBox" || type == "ComboBox" || type == "RichTextBox")
        SkipOnError([&] { control.SetText(""); });
}

}  // namespace

bool IsDateInFinYear(basic::Date date, std::int16_t year) {
    const basic::Date day = basic::DatePart(date);
    const std::int16_t nextYear = basic::ToInteger(year + 1.0);
    const basic::Date first = basic::ReadDate("01-Apr-" + std::to_string(year));
    const basic::Date last = basic::ReadDate("31-Mar-" + std::to_string(nextYear));
    return day >= first && day <= last;
}

void FillComboFromQuery(basic::ListControl& combo, const std::string& sql, bool emptyLine) {
    combo.Clear();
    if (emptyLine) combo.AddItem("");
    for (const basic::Value& value : FetchFirstColumn(sql)) combo.AddItem(basic::ToText(value));
}

void FillComboFromArray(basic::ListControl& combo, const std::vector<std::string>& texts) {
    for (const std::string& text : texts)
        if (!text.empty()) combo.AddItem(text);
}

void ClearControls(basic::ControlHost& form, const std::string& keepPrefix) {
    for (basic::Control* control : form.Controls())
        if (keepPrefix.empty() || !control->Name().starts_with(keepPrefix)) ClearControl(*control);
}

void LockControls(basic::ControlHost& form) {
    SetAllLocked(form, true);
}

void UnlockControls(basic::ControlHost& form) {
    SetAllLocked(form, false);
}

}  // namespace qm
