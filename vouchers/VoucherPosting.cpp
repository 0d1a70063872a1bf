#include "vouchers/VoucherPosting.h"

#include <utility>

#include "core/Balance.h"
#include "core/CountedExecution.h"
#include "core/Quoting.h"
#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

bool IsDebit(const VoucherLine& line) {
    return line.Side == LedgerSide::Debit;
}

std::string LedgerOfYear(const std::string& ledgerId) {
    return " Where Ledger_ID = " + ledgerId + " And Fnncl_Yr = " + shared().FinYear;
}

}  // namespace

VoucherPosting::VoucherPosting(std::int32_t trnNo, std::int32_t dayNumber, std::string voucherType)
    : trnNo_(trnNo), dayNumber_(dayNumber), voucherType_(std::move(voucherType)) {}

void VoucherPosting::Post(const VoucherLine& line) {
    if (line.Removed)
        Remove(line);
    else if (line.SavedNo.empty())
        Add(line);
    else
        Replace(line);
}

// The row's balance is the one after this posting: the totals have it already. Kept 12.
void VoucherPosting::Add(const VoucherLine& line) {
    if (!line.Side) return;
    RaiseTotals(line);
    ReadBalance(line, true);
    InsertRow(line);
}

// What is taken away is what stands on the line now, on the side where it stands now: an amount changed from
// 100 to 150 leaves the total as it was, and only a move to another ledger shifts totals. The row is looked
// for on the date that the screen shows now. The row's balance is opening plus this one line. All kept 37.
void VoucherPosting::Replace(const VoucherLine& line) {
    if (!line.Changed) return;
    ExecuteCounted((IsDebit(line) ? "Update Ledger_Details Set LedDetDRTxnTot = Iif(IsNull(LedDetDRTxnTot), "
                                    "0, LedDetDRTxnTot) - " +
                                        basic::NumberText(line.DrAmount)
                                  : "Update Ledger_Details Set LedDetCRTxnTot = Iif(IsNull(LedDetCRTxnTot), "
                                    "0, LedDetCRTxnTot) - " +
                                        basic::NumberText(line.CrAmount)) +
                   LedgerOfYear(line.OldLedgerId));
    DeleteRow(line, line.OldLedgerId);
    RaiseTotals(line);
    ReadBalance(line, false);
    balance_ += line.DrAmount - line.CrAmount;
    InsertRow(line);
}

// The ledger is found by the name on the line: two ledgers of that name fail it, and so does a line that was
// moved to another ledger before. A Null total stays Null. Kept 38.
void VoucherPosting::Remove(const VoucherLine& line) const {
    ExecuteCounted(
        (IsDebit(line) ? "Update Ledger_Details Set LedDetDRTxnTot = LedDetDRTxnTot - " +
                             basic::NumberText(line.DrAmount)
                       : "Update Ledger_Details Set LedDetCRTxnTot = LedDetCRTxnTot - " +
                             basic::NumberText(line.CrAmount)) +
        LedgerOfYear("(Select Ledger_ID From Ledger_Master Where Name =  " + Quoted(line.LedgerName) + ")"));
    DeleteRow(line, "(Select Ledger_ID From Ledger_Master Where Name = " + Quoted(line.LedgerName) + ")");
}

// Both totals are written, the one that does not apply with + 0.
void VoucherPosting::RaiseTotals(const VoucherLine& line) const {
    ExecuteCounted(
        "Update Ledger_Details Set LedDetDRTxnTot = Iif(IsNull(LedDetDRTxnTot), 0, LedDetDRTxnTot) + " +
        basic::NumberText(line.DrAmount) +
        ", LedDetCRTxnTot = Iif(IsNull(LedDetCRTxnTot), 0, LedDetCRTxnTot) + (" +
        basic::NumberText(line.CrAmount) + ")" + LedgerOfYear(line.LedgerId));
}

void VoucherPosting::ReadBalance(const VoucherLine& line, bool withTotals) {
    ado::Recordset details;
    details.Open(
        "Select Bal_Type, Opening_Bal, Closing_Bal, LedDetDRTxnTot, LedDetCRTxnTot From Ledger_Details" +
            LedgerOfYear(line.LedgerId),
        shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
    if (details.Eof()) return;
    balance_ = SignedOpening(details).value_or(balance_);
    if (withTotals)
        balance_ +=
            basic::NumberOrZero(details["LedDetDRTxnTot"]) - basic::NumberOrZero(details["LedDetCRTxnTot"]);
}

void VoucherPosting::InsertRow(const VoucherLine& line) const {
    ExecuteCounted("Insert Into tb_Ledger" + shared().FinYear +
                   "(LedgerTrnNo, LedgerCode, LedgerTxnDate, LedgerDrAmt, LedgerNarration, LedgerTrnType, "
                   "LedgerCrAmt, LedgerName, LedgerLedBal, LedgerMcGenerated) Values (" +
                   std::to_string(trnNo_) + ", " + line.LedgerId + ", " + std::to_string(dayNumber_) + ", " +
                   basic::NumberText(line.DrAmount) + ", " + Quoted(line.Narration) + ", " +
                   Quoted(voucherType_) + ", " + basic::NumberText(line.CrAmount) + ", " +
                   Quoted(line.LedgerName) + ", " + Quoted(BalanceText(balance_)) + ", True)");
}

void VoucherPosting::DeleteRow(const VoucherLine& line, const std::string& ledgerId) const {
    ExecuteCounted("Delete From tb_Ledger" + shared().FinYear +
                   " Where LedgerTrnNo = " + basic::NumberText(basic::PrefixValue(line.SavedNo)) +
                   " And LedgerCode = " + ledgerId + " And LedgerTxnDate = " + std::to_string(dayNumber_) +
                   " And LedgerTrnType = " + Quoted(voucherType_));
}

}  // namespace qm
