#pragma once

#include <string>

#include "platform/forms/controls/Controls.h"

namespace qm {

// The checks of what is entered on the stock screens and the order screens. Each shows its message; one that
// goes back to a control opens its list.

// Whether the date lies in the current year. The message names the range one year early: kept 1.
bool DateIsInYear(forms::DTPicker& date);

// Whether the box shows anything, chosen or not.
bool IsChosen(forms::ComboBox& box, const char* message);

// Drops every typed character but digits, the point and Backspace.
void KeepFigures(int& keyAscii);

// Whether the text is blank or a number.
bool IsQuantity(const std::string& text, const char* message = "Please enter a valid numeric quantity");

}  // namespace qm
