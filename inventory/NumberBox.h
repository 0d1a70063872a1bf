#pragma once

#include "platform/forms/controls/ComboBox.h"

namespace qm {

// The box from which a stock screen chooses a movement: the number of a saved one, or "<New>".
inline constexpr const char* NewNumber = "<New>";

// Whether it shows a number, neither nothing nor "<New>".
bool ShowsSaved(const forms::ComboBox& box);
// The number that it shows, read up to the first character that is none; 0 for "<New>".
double NumberIn(const forms::ComboBox& box);
// The same as statements take it.
std::string NumberTextIn(const forms::ComboBox& box);

}  // namespace qm
