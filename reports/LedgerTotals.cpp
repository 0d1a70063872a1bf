#include "reports/LedgerTotals.h"

#include <string>

#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

ado::RecordsetPtr OpenSums(const std::string& side, std::optional<std::int32_t> upto) {
    const std::string where = upto ? " where ledgerTxnDate <= " + std::to_string(*upto) : "";
    auto sums = std::make_shared<ado::Recordset>();
    sums->Open("Select ledgercode,Sum(ledger" + side + "Amt) as " + side + "Tot  from " +
                   YearTable("tb_Ledger") + where + " group by ledgercode",
               shared().Connection, ado::adOpenForwardOnly, ado::adLockReadOnly, ado::adCmdText);
    return sums;
}

// A sum over Null amounts alone is Null and counts as 0; the digits are those of the classic text.
void WriteTotals(const std::string& side, ado::Recordset& sums, BeforeRebuild before,
                 const std::function<void()>& written) {
    if (before == BeforeRebuild::ZeroTotals)
        Conn().Execute("Update Ledger_details Set ledDet" + side +
                       "TxnTot = 0 Where fnncl_yr = " + shared().FinYear);
    for (; !sums.Eof(); sums.MoveNext()) {
        Conn().Execute("Update Ledger_Details Set  ledDet" + side +
                       "TxnTot = " + basic::NumberText(basic::NumberOrZero(sums[side + "Tot"])) +
                       " Where ledger_id = " + basic::TextOrEmpty(sums["ledgerCode"]) +
                       " And fnncl_yr = " + shared().FinYear);
        written();
    }
}

// A row whose side is neither "D" nor "C" keeps the closing balance that it had. Kept 68.
void WriteClosingBalances() {
    Conn().Execute(
        "Update Ledger_Details Set  Closing_Bal = opening_Bal + ledDetDrTxnTot - ledDetCrTxnTot Where "
        "Bal_type = 'D' And fnncl_yr = " +
        shared().FinYear);
    Conn().Execute(
        "Update Ledger_Details Set  Closing_Bal = (opening_Bal *-1)+ ledDetDrTxnTot - ledDetCrTxnTot Where "
        "Bal_type = 'C' And fnncl_yr = " +
        shared().FinYear);
}

}  // namespace

void RebuildLedgerTotals(std::optional<std::int32_t> upto, BeforeRebuild before,
                         const std::function<void(int done, int steps)>& progress) {
    const ado::RecordsetPtr debits = OpenSums("Dr", upto), credits = OpenSums("Cr", upto);
    int done = 0;
    const auto tell = [&, steps = static_cast<int>(debits->RecordCount() + credits->RecordCount())] {
        if (progress) progress(done, steps);
        ++done;
    };
    tell();
    WriteTotals("Dr", *debits, before, tell);
    WriteTotals("Cr", *credits, before, tell);
    WriteClosingBalances();
}

}  // namespace qm
