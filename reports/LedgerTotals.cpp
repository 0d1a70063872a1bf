#include "reports/LedgerTotals.h"

#include <string>

#include "core/modGeneral.h"
#include "platform/ado/Errors.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/SetNumbers.h"
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

constexpr const char* BothSums =
    "Select ledgercode,Sum(ledgerDrAmt) as drTot,Sum(ledgerCrAmt) as CrTot  from tb_Ledger";

ado::RecordsetPtr OpenSums(const char* select, std::optional<std::int32_t> upto) {
    const std::string where = upto ? " where ledgerTxnDate <= " + std::to_string(*upto) : "";
    auto sums = std::make_shared<ado::Recordset>();
    sums->Open(select + shared().FinYear + where + " group by ledgercode", shared().Connection,
               ado::adOpenForwardOnly, ado::adLockReadOnly, ado::adCmdText);
    return sums;
}

// A sum over Null amounts alone is Null and counts as 0; the digits are those of the classic text.
void WriteTotals(const SideStatements& side, ado::Recordset& sums, BeforeRebuild before,
                 const std::function<void()>& written) {
    if (before == BeforeRebuild::ZeroTotals) Conn().Execute(side.Zero + shared().FinYear);
    for (; !sums.Eof(); sums.MoveNext()) {
        Conn().ExecuteAhead(side.Write + basic::NumberText(basic::NumberOrZero(sums[side.Total])) +
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

// The digits are those that the text of a statement would have.
double AsWritten(const basic::Value& total) {
    return basic::PrefixValue(basic::NumberText(basic::NumberOrZero(total)));
}

// Both sides of all ledgers by one statement. Raises where one by one a statement could not be written.
void WriteAtOnce(ado::Recordset& sums, BeforeRebuild before) {
    ado::KeyedNumbers totals;
    totals.table = "Ledger_Details";
    totals.key = "ledger_id";
    totals.where = "fnncl_yr";
    totals.is = basic::ToLong(basic::Value(shared().FinYear));
    totals.columns = {"ledDetDrTxnTot", "ledDetCrTxnTot"};
    if (before == BeforeRebuild::ZeroTotals) totals.others = 0;
    for (; !sums.Eof(); sums.MoveNext())
        totals.lines[basic::ToLong(sums["ledgercode"])] = {AsWritten(sums[Debits.Total]),
                                                           AsWritten(sums[Credits.Total])};
    ado::SetNumbers(Conn(), totals);
}

// False where nothing of it could be done: a statement would fail, which then shows one by one. In a
// transaction a failure may take more with it than its statement, so there nothing is tried.
bool WrittenAtOnce(ado::Recordset& sums, BeforeRebuild before) {
    if (Conn().TransDepth() > 0) return false;
    try {
        WriteAtOnce(sums, before);
    } catch (const basic::Error& failure) {
        if (failure.Number == ado::error::Locked) throw;  // the first of them would have waited, too
        return false;
    }
    return true;
}

}  // namespace

// The totals are written at once where nobody can tell it from one by one: where all of the statements pass.
void RebuildLedgerTotals(std::optional<std::int32_t> upto, BeforeRebuild before,
                         const std::function<void(int done, int steps)>& progress) {
    const ado::RecordsetPtr sums = OpenSums(BothSums, upto);
    int done = 0;
    const auto tell = [&, steps = static_cast<int>(sums->RecordCount() * 2)] {
        if (progress && done <= steps) progress(done, steps);
        return done++ < steps;
    };
    tell();
    if (WrittenAtOnce(*sums, before)) {
        while (tell()) continue;
    } else {
        const ado::RecordsetPtr debits = OpenSums(Debits.Sums, upto), credits = OpenSums(Credits.Sums, upto);
        WriteTotals(Debits, *debits, before, tell);
        WriteTotals(Credits, *credits, before, tell);
    }
    WriteClosingBalances();
}

}  // namespace qm
