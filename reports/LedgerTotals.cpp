#include "reports/LedgerTotals.h"

#include <string>
#include <vector>

#include "core/modGeneral.h"
#include "platform/ado/Errors.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

using Progress = std::function<void(int done, int steps)>;

// Tells how many totals are done, from the 0 before the first.
class Teller {
  public:
    Teller(const Progress& progress, std::int32_t steps) : progress_(progress), steps_(steps) { Tell(); }
    void Done() {
        ++done_;
        Tell();
    }
    void AllDone() {
        while (done_ < steps_) Done();
    }

  private:
    void Tell() const {
        if (progress_) progress_(done_, steps_);
    }
    const Progress& progress_;
    std::int32_t steps_;
    std::int32_t done_ = 0;
};

std::string UpTo(std::optional<std::int32_t> upto) {
    return upto ? " where ledgerTxnDate <= " + std::to_string(*upto) : "";
}

ado::RecordsetPtr OpenSums(const std::string& sums, const std::string& where) {
    auto rows = std::make_shared<ado::Recordset>();
    rows->Open(
        "Select ledgercode," + sums + "  from " + YearTable("tb_Ledger") + where + " group by ledgercode",
        shared().Connection, ado::adOpenForwardOnly, ado::adLockReadOnly, ado::adCmdText);
    return rows;
}

ado::RecordsetPtr OpenSide(const std::string& side, std::optional<std::int32_t> upto) {
    return OpenSums("Sum(ledger" + side + "Amt) as " + side + "Tot", UpTo(upto));
}

// A sum over Null amounts alone is Null and counts as 0; the digits are those of the classic text.
std::string Total(const std::string& side, ado::Recordset& sums) {
    return "ledDet" + side + "TxnTot = " + basic::NumberText(basic::NumberOrZero(sums[side + "Tot"]));
}

std::string OfLedger(ado::Recordset& sums) {
    return " Where ledger_id = " + basic::TextOrEmpty(sums["ledgerCode"]) +
           " And fnncl_yr = " + shared().FinYear;
}

void WriteTotals(const std::string& side, ado::Recordset& sums, BeforeRebuild before, Teller& teller) {
    if (before == BeforeRebuild::ZeroTotals)
        Conn().Execute("Update Ledger_details Set ledDet" + side +
                       "TxnTot = 0 Where fnncl_yr = " + shared().FinYear);
    for (; !sums.Eof(); sums.MoveNext()) {
        Conn().Execute("Update Ledger_Details Set  " + Total(side, sums) + OfLedger(sums));
        teller.Done();
    }
}

// A row whose side is neither "D" nor "C" keeps the closing balance that it had. Kept 68.
std::vector<std::string> ClosingBalances() {
    return {
        "Update Ledger_Details Set  Closing_Bal = opening_Bal + ledDetDrTxnTot - ledDetCrTxnTot Where "
        "Bal_type = 'D' And fnncl_yr = " +
            shared().FinYear,
        "Update Ledger_Details Set  Closing_Bal = (opening_Bal *-1)+ ledDetDrTxnTot - ledDetCrTxnTot Where "
        "Bal_type = 'C' And fnncl_yr = " +
            shared().FinYear};
}

// All of it as one, from one reading of both sides.
void WriteAtOnce(ado::Recordset& sums, BeforeRebuild before) {
    std::vector<std::string> statements;
    if (before == BeforeRebuild::ZeroTotals)
        statements.push_back(
            "Update Ledger_details Set ledDetDrTxnTot = 0, ledDetCrTxnTot = 0 Where fnncl_yr = " +
            shared().FinYear);
    for (; !sums.Eof(); sums.MoveNext())
        statements.push_back("Update Ledger_Details Set  " + Total("Dr", sums) + ", " + Total("Cr", sums) +
                             OfLedger(sums));
    for (std::string& closing : ClosingBalances()) statements.push_back(std::move(closing));
    Conn().ExecuteAll(statements);
}

// One by one: a failing statement leaves what was done before it.
void WriteOneByOne(std::optional<std::int32_t> upto, BeforeRebuild before, Teller& teller) {
    const ado::RecordsetPtr debits = OpenSide("Dr", upto), credits = OpenSide("Cr", upto);
    WriteTotals("Dr", *debits, before, teller);
    WriteTotals("Cr", *credits, before, teller);
    for (const std::string& closing : ClosingBalances()) Conn().Execute(closing);
}

}  // namespace

// At once where nobody can tell it from the statements one by one: where all of them pass. Where one fails,
// none has been done, and one by one they stop at the same place with the same words. Another program that
// holds the books stops the first of them either way. In a transaction a failure may take more with it than
// its statement, so there they go one by one from the start.
void RebuildLedgerTotals(std::optional<std::int32_t> upto, BeforeRebuild before, const Progress& progress) {
    const ado::RecordsetPtr sums =
        OpenSums("Sum(ledgerDrAmt) as DrTot,Sum(ledgerCrAmt) as CrTot", UpTo(upto));
    Teller teller(progress, static_cast<std::int32_t>(sums->RecordCount() * 2));
    if (Conn().TransDepth() > 0) return WriteOneByOne(upto, before, teller);
    try {
        WriteAtOnce(*sums, before);
    } catch (const basic::Error& failure) {
        if (failure.Number == ado::error::Locked) throw;
        return WriteOneByOne(upto, before, teller);
    }
    teller.AllDone();
}

}  // namespace qm
