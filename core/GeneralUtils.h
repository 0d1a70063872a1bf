#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/basic/Control.h"
#include "platform/basic/Value.h"

namespace qm {

// Whether the day lies from 01-Apr-year to 31-Mar-year+1, both included. Raises 6 "Overflow" for year 32767.
bool IsDateInFinYear(basic::Date date, std::int16_t year);

// Clears the box; with `emptyLine` adds an empty line first; then adds each value of the select's first
// column in order.
void FillComboFromQuery(basic::ListControl& combo, const std::string& sql, bool emptyLine);
// Adds each text in order, skipping empty ones; does not clear.
void FillComboFromArray(basic::ListControl& combo, const std::vector<std::string>& texts);

// Each in skip-on-error mode over all controls of a form. ClearControls leaves alone the controls whose name
// begins with the prefix, unless it is empty. UnlockControls also empties the selection of every combo box:
// the screens set it again. Kept 2.
void ClearControls(basic::ControlHost& form, const std::string& keepPrefix);
void LockControls(basic::ControlHost& form);
void UnlockControls(basic::ControlHost& form);

}  // namespace qm
