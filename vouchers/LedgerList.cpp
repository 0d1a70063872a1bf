#include "vouchers/LedgerList.h"

#include <unordered_map>

#include "core/Balance.h"
#include "core/LedgerSide.h"
#include "core/VoucherType.h"
#include "core/modGeneral.h"
#include "platform/basic/Number.h"

namespace qm {
namespace {

std::string Statement(LedgerListKind kind) {
    const std::string fields =
        "Ledger_Master.Ledger_ID, Name, Group_ID, PrimaryGrp,  Opening_Bal, Closing_Bal, Bal_Type, "
        "LedDetDrTxnTot, LedDetCrTxnTot ";
    const std::string rest =
        "Ledger_Master.Ledger_ID = Ledger_Details.Ledger_ID  And Ledger_Details.Fnncl_Yr = " +
        shared().FinYear + " Order By Name";
    switch (kind) {
        case LedgerListKind::Bank:
            return "Select " + fields +
                   "From Ledger_Master, Ledger_Details Where (PrimaryGrp= 'Bank' Or PrimaryGrp = 'Cash In "
                   "Hand') And " +
                   rest;
        case LedgerListKind::Journal:
            return "Select " + fields +
                   "From Ledger_Master, Ledger_Details Where (PrimaryGrp<> 'Cash In Hand' Or  PrimaryGrp <> "
                   "'Bank') And " +
                   rest;
        default:
            return "Select Distinct " + fields + "From Ledger_Master,  Ledger_Details Where " + rest;
    }
}

}  // namespace

LedgerListKind LedgerListFor(const std::string& voucherType, const std::string& side) {
    const auto type = TypeOfWord(voucherType);
    if (type == VoucherType::Contra) return LedgerListKind::Bank;
    if (type == VoucherType::Journal) return LedgerListKind::Journal;
    const auto lineSide = SideOfMark(side);
    if (!type || !lineSide) return LedgerListKind::Stays;
    const auto bankSide = type == VoucherType::Receipt ? LedgerSide::Debit : LedgerSide::Credit;
    return lineSide == bankSide ? LedgerListKind::Bank : LedgerListKind::All;
}

// A ledger with two detail rows shows the balance of the first of them twice. Kept 43.
std::string LedgerList::Fill(LedgerListKind kind) {
    Close();
    ledgers_ = std::make_shared<ado::Recordset>();
    ledgers_->Open(Statement(kind), shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
    std::unordered_map<std::string, std::string> balances;
    std::string list;
    for (; !ledgers_->Eof(); ledgers_->MoveNext()) {
        const std::string id = basic::TextOrEmpty((*ledgers_)["Ledger_ID"]);
        const auto [balance, isFirst] = balances.try_emplace(id);
        if (isFirst) balance->second = CurrentBalanceText();
        list += (list.empty() ? "#" + id + "*1;" : "|#" + id + ";") + id + "\t" +
                basic::TextOrEmpty((*ledgers_)["Name"]) + "\t" + balance->second;
    }
    return list;
}

std::string LedgerList::LedgerBalanceText(const std::string& ledgerId) {
    ledgers_->MoveFirst();
    ledgers_->Find("Ledger_ID = " + ledgerId);
    return CurrentBalanceText();
}

std::string LedgerList::CurrentBalanceText() {
    ado::Recordset& ledger = *ledgers_;
    const bool debit = SideOfLetter(basic::TextOrEmpty(ledger["Bal_Type"])) == LedgerSide::Debit;
    const double opening = basic::NumberOrZero(ledger["Opening_Bal"]) * (debit ? 1 : -1);
    const basic::Value debits = ledger["leddetDrtxntot"];
    if (debits.IsNull()) return "Dr";
    const double balance = opening + basic::ToDouble(debits) - basic::NumberOrZero(ledger["leddetCrtxntot"]);
    return BalanceText(balance, [](double rupees) { return basic::StrText(basic::Round(rupees, 2)); });
}

void LedgerList::Close() {
    if (ledgers_ && ledgers_->State() != ado::adStateClosed) ledgers_->Close();
    ledgers_.reset();
}

}  // namespace qm
