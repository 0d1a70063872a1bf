#pragma once

#include "platform/ado/Recordset.h"

namespace qm {

// Carries a row of Ledger_Details over the end of a year: its opening balance with the two totals becomes the
// new opening balance, on the side on which it falls (0 stays on its side; a row without a "C" counts as
// debit), and totals and closing balance become 0. The row is left with a pending edit. The totals are the
// caller's, who knows what a Null one means; a Null opening balance raises 94 "Invalid use of Null".
void FoldTotals(ado::Recordset& row, double debitTotal, double creditTotal);

}  // namespace qm
