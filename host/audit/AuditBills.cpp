// A receipt of goods is rows of stock, a bill and a voucher: they are held against each other.
#include "core/BillFigures.h"
#include "host/audit/Audit.h"
#include "platform/basic/Number.h"

namespace host {
namespace {

using Id = std::int32_t;

struct Goods {
    double cost = 0;  // of a receipt together
    Subject subject;
};

struct Receipts {
    std::map<Id, Goods> goods;
    std::map<Id, double> vouchers;  // what a voucher credits, of those that a bill names
};

std::set<Id> ReadNamed(Audit& audit, const std::string& year) {
    std::set<Id> named;
    audit.Each("Select BillVchrNo From tblBills" + year,
               [&](ado::Recordset& row) { named.insert(IdOf(row, "BillVchrNo")); });
    return named;
}

Receipts ReadReceipts(Audit& audit, const std::string& year) {
    Receipts receipts;
    audit.Each(
        "Select ItemLedTrnNo, ItemLedTrnType, ItemLedPONo, ItemLedTrnRptQty, ItemLedUnitPrice From "
        "tblItemLed" +
            year + " Where ItemLedTrnType = 'Receipt'",
        [&](ado::Recordset& row) {
            Goods& goods = receipts.goods[IdOf(row, "ItemLedTrnNo")];
            goods.cost +=
                basic::NumberOrZero(row["ItemLedTrnRptQty"]) * basic::NumberOrZero(row["ItemLedUnitPrice"]);
            goods.subject = MovementOf(row, year);
        });
    const std::set<Id> named = ReadNamed(audit, year);
    if (named.empty()) return receipts;
    audit.Each("Select LedgerTrnNo, LedgerCrAmt From tb_Ledger" + year, [&](ado::Recordset& row) {
        const Id voucher = IdOf(row, "LedgerTrnNo");
        if (named.contains(voucher)) receipts.vouchers[voucher] += basic::NumberOrZero(row["LedgerCrAmt"]);
    });
    return receipts;
}

// The total of the bill as its screen showed it, "" for none.
std::string TotalOf(ado::Recordset& row, double goods) {
    qm::BillFigures bill{.BillTotal = goods == 0 ? "" : qm::BillFigures::Shown(goods),
                         .Discount = basic::TextOrEmpty(row["BillDiscount"]),
                         .TaxRate = basic::TextOrEmpty(row["BillTaxRate"]),
                         .OtherCharges = basic::TextOrEmpty(row["BillOtherCharges"])};
    bill.Reckon(basic::ToBoolean(row["ISPoBill"]) ? qm::OrderBill : qm::ReceiptBill);
    return bill.TotalAmt;
}

// The day book deletes the voucher of a receipt and leaves the bill; a receipt posts the number before its
// total's comma: so these are notes.
void CheckBill(Audit& audit, const std::string& year, const Receipts& receipts, ado::Recordset& row) {
    const Id number = IdOf(row, "BillVchrNo");
    const std::string bill = "bill '" + basic::TextOrEmpty(row["BillID"]) + "' of receipt " +
                             basic::TextOrEmpty(row["BillTxnID"]) + " in " + year + ": ";
    const std::string voucher = "its voucher " + std::to_string(number);
    const auto goods = receipts.goods.find(IdOf(row, "BillTxnID"));
    const bool received = goods != receipts.goods.end();
    const Subject receipt = received ? goods->second.subject : Subject{Subject::Kind::Bills, 0, year};
    if (number == 0) return audit.Error(receipt, bill + "bears no voucher number");
    const auto posted = receipts.vouchers.find(number);
    if (posted == receipts.vouchers.end())
        return audit.Note(receipt, bill + voucher + " does not stand (deleted in the day book)");
    const std::string total = TotalOf(row, received ? goods->second.cost : 0);
    if (total.find(',') != std::string::npos && !Differ(posted->second, basic::PrefixValue(total)))
        audit.Note(receipt, bill + voucher + " bears " + Rupees(posted->second) +
                                ", the part before the comma of " + total);
}

}  // namespace

void AuditBills(Audit& audit) {
    for (const std::string& year : audit.Years()) {
        Receipts receipts = ReadReceipts(audit, year);
        std::set<Id> billed;
        audit.Each("Select * From tblBills" + year, [&](ado::Recordset& row) {
            billed.insert(IdOf(row, "BillTxnID"));
            CheckBill(audit, year, receipts, row);
        });
        for (const auto& [receipt, goods] : receipts.goods)
            if (!billed.contains(receipt))
                audit.Error(goods.subject, "receipt " + std::to_string(receipt) + " of " + year +
                                               ": its goods have no bill and no voucher");
    }
}

}  // namespace host
