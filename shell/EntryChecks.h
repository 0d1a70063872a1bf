#pragma once

#include <string>

#include "platform/basic/Value.h"
#include "platform/forms/Controls.h"

namespace qm {

// The checks of what is entered on the screens. Each shows its message; one that goes back to a control says
// so, and opens its list if it has one.

// The years that the box of a date outside the current year names. Kept 1: the screens that enter vouchers,
// goods and orders name the range one year early, though they test the right one.
enum class RangeNamed { CurrentYear, YearBefore };

// Whether the date lies in the current year.
bool IsInYear(basic::Date date, RangeNamed named);
// The same of a screen that enters: names the year before, and goes back to the date.
bool DateIsInYear(forms::DTPicker& date);

// Whether the box shows anything, chosen or not; goes back to it.
bool IsChosen(forms::ComboBox& box, const char* message);
// Whether anything but blanks is entered; goes back to the box.
bool IsFilled(forms::TextBox& box, const char* message);

// Drops every typed character but digits, the point and Backspace; `Minus` keeps "-" too.
enum class TypedSign { None, Minus };
void KeepFigures(int& keyAscii, TypedSign sign = TypedSign::None);

// Whether the text is blank or a number.
bool IsQuantity(const std::string& text, const char* message = "Please enter a valid numeric quantity");

}  // namespace qm
