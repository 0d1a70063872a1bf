// The voucher calls of the class: one row, one transaction each, with no check that the sides balance.
#include <cmath>
#include <limits>
#include <optional>

#include "core/Balance.h"
#include "core/CountedExecution.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/LedgerSide.h"
#include "core/NextNumber.h"
#include "core/Quoting.h"
#include "core/VoucherType.h"
#include "core/clQm.h"
#include "core/modGeneral.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

const char* const FormName = "Class-ClQm";

// The failure step of all voucher calls. A failed count comes with number 0 and an empty description. Kept 6.
bool FailVoucher(const basic::Error& error) {
    RollbackOpen();
    LogError(FormName, error);
    return false;
}

void DeleteRows(std::int32_t lTrnID) {
    ExecuteCounted("Delete From tb_Ledger" + shared().FinYear +
                   " Where LedgerTrnNo = " + basic::NumberText(lTrnID));
}

std::string OfLedger(const std::string& ledgerCode) {
    return " Where Ledger_ID = " + ledgerCode + " And Fnncl_Yr = " + shared().FinYear;
}

// The ordinary conversion, which knows words for what is not finite: the statement that holds them fails, in
// its own transaction.
std::string AmountText(double amount) {
    if (std::isfinite(amount)) return basic::NumberText(amount);
    return std::isnan(amount) ? "-1.#IND" : amount < 0 ? "-1.#INF" : "1.#INF";
}

// Any other letter appends nothing, which leaves the insert a value short, so it fails. Kept 3.
std::string TypeWord(const std::string& category) {
    const auto type = TypeOfLetter(basic::UCase(category));
    return type ? Quoted(WordOf(*type)) + ", " : "";
}

// 0 without a row for the year; an opening on neither side counts as 0.
double BalanceOf(const std::string& ledgerCode) {
    double balance = 0;
    ado::Recordset rows;
    rows.Open("Select Bal_Type, Opening_Bal, LedDetDRTxnTot, LedDetCRTxnTot From Ledger_Details" +
                  OfLedger(ledgerCode),
              shared().Connection);
    if (!rows.Eof() && !rows.Bof()) {
        const double opening = SignedOpening(rows).value_or(0);
        balance = basic::NumberOrZero(rows["LedDetDRTxnTot"]) - basic::NumberOrZero(rows["LedDetCRTxnTot"]) +
                  opening;
    }
    rows.Close();
    return balance;
}

bool IsNullOrZero(const basic::Value& amount) {
    return amount.IsNull() || basic::ToDouble(amount) == 0;
}

// Takes a row's amounts out of its ledger's totals of the current year. A Null amount leaves a gap, and the
// statement fails. Kept 9. What follows may be InsertVoucher with a trap of its own, so the count is asked at
// once.
void ReverseTotals(ado::Recordset& row) {
    RequireRecords(Affected(
        "Update Ledger_Details Set LedDetDRTxnTot = IIf(IsNull(LedDetDRTxnTot), 0, LedDetDRTxnTot) - " +
        basic::TextOrEmpty(row["LedgerDrAmt"]) +
        ", LedDetCRTxnTot = IIf(IsNull(LedDetCRTxnTot), 0, LedDetCRTxnTot) - " +
        basic::TextOrEmpty(row["LedgerCrAmt"]) + OfLedger(basic::TextOrEmpty(row["LedgerCode"]))));
}

// A row of the voucher, written again on its own side. The result of InsertVoucher is not looked at; a row
// with both amounts is not written again: both kept 8.
void WriteAgain(clQm& host, std::int32_t lTrnID, std::int32_t dtTrnDT, double dAmt, ado::Recordset& row) {
    std::optional<LedgerSide> side;
    if (IsNullOrZero(row["LedgerDrAmt"]))
        side = LedgerSide::Credit;
    else if (IsNullOrZero(row["LedgerCrAmt"]))
        side = LedgerSide::Debit;
    if (!side) return;
    host.InsertVoucher(lTrnID, dtTrnDT, basic::Left(basic::ToText(row["LedgerTrnType"]), 1), LetterOf(*side),
                       basic::ToText(row["LedgerNarration"]), dAmt, basic::ToLong(row["LedgerCode"]),
                       basic::ToText(row["LedgerName"]));
}

}  // namespace

std::int32_t clQm::GetNextTrnID() {
    LoadCurrentYear();
    return NextNumber("Select Max(LedgerTrnNo) As High from tb_Ledger" + shared().FinYear);
}

basic::Value clQm::VchrTrnNo() {
    ado::Recordset rows;
    rows.Open("Select Max(ledgerTrnNo) as high from tb_ledger" + shared().FinYear, shared().Connection);
    const double next = NumberAfter(rows.Fields(0).Value());
    if (next > std::numeric_limits<std::int32_t>::max())
        return next;  // a variant widens, where a 32-bit number would not
    return basic::ToLong(next);
}

bool clQm::InsertVoucher(std::int32_t lTrnID, std::int32_t dtTrnDT, const std::string& sTrnCate,
                         const std::string& sTrnType, const std::string& sTrnNarration, double dAmt,
                         std::int32_t lLedCode, const std::string& sLedName) {
    try {
        const std::string ledgerCode = basic::NumberText(lLedCode), amount = AmountText(dAmt);
        const auto side = SideOfLetter(basic::UCase(sTrnType));
        std::string insert =
            "Insert Into tb_Ledger" + shared().FinYear +
            " (LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerNarration, LedgerTrnType, "
            "LedgerDrAmt, LedgerCrAmt, LedgerLedBal, LedgerMcGenerated) Values (" +
            basic::NumberText(lTrnID) + ", " + ledgerCode + ", " + Quoted(sLedName) + ", " +
            basic::NumberText(dtTrnDT) + ", " + Quoted(sTrnNarration) + ", " + TypeWord(sTrnCate);
        std::string update = "Update Ledger_Details Set ";
        if (side == LedgerSide::Debit) {
            insert += amount + ", 0";
            update += "LedDetDRTxnTot = Iif(IsNull(LedDetDRTxnTot), 0, LedDetDRTxnTot) + " + amount;
        } else if (side == LedgerSide::Credit) {
            insert += "0, " + amount;
            update += "LedDetCRTxnTot = Iif(IsNull(LedDetCRTxnTot), 0, LedDetCRTxnTot) + " + amount;
        }
        // The balance before this posting. Kept 12.
        insert += ", " + Quoted(BalanceText(BalanceOf(ledgerCode))) + ", True)";
        update += OfLedger(ledgerCode);
        Conn().BeginTrans();
        ExecuteCounted(update);
        ExecuteCounted(insert);
        Conn().CommitTrans();
        return true;
    } catch (const basic::Error& error) {
        return FailVoucher(error);
    }
}

bool clQm::UpdateVoucher(std::int32_t lTrnID, std::int32_t dtTrnDT, double dAmt) {
    if (lTrnID == 0) return false;
    try {
        LoadCurrentYear();
        ado::Recordset rows;  // a client-side copy: it survives the delete
        rows.SetCursorLocation(ado::adUseClient);
        rows.Open(
            "Select LedgerCode, LedgerNarration, LedgerTrnType, LedgerName, LedgerCrAmt, LedgerDrAmt From "
            "tb_Ledger" +
                shared().FinYear + " Where LedgerTrnNo = " + basic::NumberText(lTrnID),
            shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
        // The delete is committed before the rows are written again, and a failure there leaves the voucher
        // partly rewritten: the order is kept 7.
        Conn().BeginTrans();
        DeleteRows(lTrnID);
        Conn().CommitTrans();
        for (; !rows.Eof(); rows.MoveNext()) {
            Conn().BeginTrans();
            ReverseTotals(rows);
            WriteAgain(*this, lTrnID, dtTrnDT, dAmt, rows);
            Conn().CommitTrans();
        }
        rows.Close();
        return true;
    } catch (const basic::Error& error) {
        return FailVoucher(error);
    }
}

bool clQm::DeleteVoucher(std::int32_t lTrnID) {
    if (lTrnID == 0) return false;
    try {
        LoadCurrentYear();
        ado::Recordset rows;
        rows.Open("Select LedgerCode, LedgerCrAmt, LedgerDrAmt From tb_Ledger" + shared().FinYear +
                      " Where LedgerTrnNo = " + basic::NumberText(lTrnID),
                  shared().Connection, ado::adOpenForwardOnly, ado::adLockReadOnly);
        if (rows.Eof()) return true;  // a voucher that is not there is as good as deleted
        for (; !rows.Eof(); rows.MoveNext()) {
            Conn().BeginTrans();
            ReverseTotals(rows);
            Conn().CommitTrans();
        }
        // Later vouchers keep their numbers: the gap stays. Kept 10.
        Conn().BeginTrans();
        DeleteRows(lTrnID);
        Conn().CommitTrans();
        rows.Close();
        return true;
    } catch (const basic::Error& error) {
        return FailVoucher(error);
    }
}

}  // namespace qm
