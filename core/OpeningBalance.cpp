#include "core/OpeningBalance.h"

namespace qm {

void FoldTotals(ado::Recordset& row, double debitTotal, double creditTotal) {
    const double opening = basic::ToDouble(row["Opening_Bal"]);
    const bool onCredit = basic::TextOrEmpty(row["Bal_Type"]) == "C";
    const double folded = onCredit ? opening + creditTotal - debitTotal : opening + debitTotal - creditTotal;
    const bool changesSide = folded < 0;
    row.Fields("Opening_Bal").SetValue(changesSide ? -folded : folded);
    row.Fields("Bal_Type").SetValue(onCredit == changesSide ? "D" : "C");
    row.Fields("LedDetCRTxnTot").SetValue(0.0);
    row.Fields("LedDetDRTxnTot").SetValue(0.0);
    row.Fields("Closing_Bal").SetValue(0.0);
}

}  // namespace qm
