#pragma once

#include <string>

#include "platform/forms/controls/ComboBox.h"

namespace qm {

// Fills the box with the ledgers of a select anew: the fields Name, and Ledger_ID as item data.
void FillLedgerBox(forms::ComboBox& box, const std::string& sql);

}  // namespace qm
