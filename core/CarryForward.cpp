#include "core/CarryForward.h"

#include "core/LedgerSide.h"

namespace qm {

void FoldTotals(ado::Recordset& row, double debitTotal, double creditTotal) {
    const double opening = basic::ToDouble(row["Opening_Bal"]);
    const bool onCredit = SideOfLetter(basic::TextOrEmpty(row["Bal_Type"])) == LedgerSide::Credit;
    const double folded = onCredit ? opening + creditTotal - debitTotal : opening + debitTotal - creditTotal;
    const bool changesSide = folded < 0;
    row.Fields("Opening_Bal").SetValue(changesSide ? -folded : folded);
    row.Fields("Bal_Type")
        .SetValue(LetterOf(onCredit == changesSide ? LedgerSide::Debit : LedgerSide::Credit));
    row.Fields("LedDetCRTxnTot").SetValue(0.0);
    row.Fields("LedDetDRTxnTot").SetValue(0.0);
    row.Fields("Closing_Bal").SetValue(0.0);
}

}  // namespace qm
