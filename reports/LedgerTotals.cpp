#include "reports/LedgerTotals.h"

#include <string>

#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

// The statements of a side, each up to the value that follows.
struct SideStatements {
    const char *Sums, *Zero, *Write;
    const char* Total;  // the field of the sums
};
constexpr SideStatements Debits{"Select ledgercode,Sum(ledgerDrAmt) as drTot  from tb_Ledger",
                                "Update Ledger_details Set ledDetDrTxnTot = 0 Where fnncl_yr = ",
                                "Update Ledger_Details Set  ledDetDrTxnTot = ", "drTot"};
constexpr SideStatements Credits{"Select ledgercode,Sum(ledgerCrAmt) as CrTot  from tb_Ledger",
                                 "Update Ledger_details Set ledDetcrTxnTot = 0 Where fnncl_yr = ",
                                 "Update Ledger_Details Set  ledDetCrTxnTot = ", "CrTot"};

ado::RecordsetPtr OpenSums(const SideStatements& side, std::optional<std::int32_t> upto) {
    const std::string where = upto ? " where ledgerTxnDate <= " + std::to_string(*upto) : "";
    auto sums = std::make_shared<ado::Recordset>();
    sums->Open(side.Sums + shared().FinYear + where + " group by ledgercode", shared().Connection,
               ado::adOpenForwardOnly, ado::adLockReadOnly, ado::adCmdText);
    return sums;
}

// A sum over Null amounts alone is Null and counts as 0; the digits are those of the classic text.
void WriteTotals(const SideStatements& side, ado::Recordset& sums, BeforeRebuild before,
                 const std::function<void()>& written) {
    if (before == BeforeRebuild::ZeroTotals) Conn().Execute(side.Zero + shared().FinYear);
    for (; !sums.Eof(); sums.MoveNext()) {
        Conn().Execute(side.Write + basic::NumberText(basic::NumberOrZero(sums[side.Total])) +
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
    const ado::RecordsetPtr debits = OpenSums(Debits, upto), credits = OpenSums(Credits, upto);
    int done = 0;
    const auto tell = [&, steps = static_cast<int>(debits->RecordCount() + credits->RecordCount())] {
        if (progress) progress(done, steps);
        ++done;
    };
    tell();
    WriteTotals(Debits, *debits, before, tell);
    WriteTotals(Credits, *credits, before, tell);
    WriteClosingBalances();
}

}  // namespace qm
