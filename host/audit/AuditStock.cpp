// The stock of each year: an item's counters are the sums of its movements, and a bill has its voucher.
#include "host/audit/Audit.h"

namespace host {
namespace {

using Id = std::int32_t;

struct Movements {
    double received = 0, issued = 0;
};

std::map<Id, Movements> ReadMovements(Audit& audit, const std::string& year) {
    std::map<Id, Movements> sums;
    audit.Each("Select ItemLedItemID, ItemLedTrnRptQty, ItemLedTrnIssQty From tblItemLed" + year,
               [&](ado::Recordset& row) {
                   Movements& sum = sums[IdOf(row, "ItemLedItemID")];
                   sum.received += basic::NumberOrZero(row["ItemLedTrnRptQty"]);
                   sum.issued += basic::NumberOrZero(row["ItemLedTrnIssQty"]);
               });
    return sums;
}

void CheckCounters(Audit& audit, const std::string& year, std::map<Id, Movements> sums) {
    audit.Each(
        "Select Item_ID, Item_Name, ReceivedQty, IssuedQty From ItemMaster" + year, [&](ado::Recordset& row) {
            const Id item = IdOf(row, "Item_ID");
            const double received = basic::NumberOrZero(row["ReceivedQty"]);
            const double issued = basic::NumberOrZero(row["IssuedQty"]);
            const Movements sum = sums[item];
            sums.erase(item);
            if (Differ(received, sum.received) || Differ(issued, sum.issued))
                audit.Error("item " + std::to_string(item) + " '" + basic::TextOrEmpty(row["Item_Name"]) +
                            "' of " + year + ": counters say received " + Rupees(received) + " and issued " +
                            Rupees(issued) + ", movements " + Rupees(sum.received) + " and " +
                            Rupees(sum.issued));
        });
    for (const auto& [item, sum] : sums)
        audit.Error("movements of " + year + ": item " + std::to_string(item) + " does not stand");
}

// The day book deletes the voucher of a receipt and leaves the bill, so that is a note.
void CheckBills(Audit& audit, const std::string& year) {
    std::set<Id> vouchers;
    audit.Each("Select LedgerTrnNo From tb_Ledger" + year,
               [&](ado::Recordset& row) { vouchers.insert(IdOf(row, "LedgerTrnNo")); });
    audit.Each("Select BillID, BillTxnID, BillVchrNo From tblBills" + year, [&](ado::Recordset& row) {
        const Id voucher = IdOf(row, "BillVchrNo");
        if (vouchers.contains(voucher)) return;
        const std::string bill = "bill '" + basic::TextOrEmpty(row["BillID"]) + "' of receipt " +
                                 basic::TextOrEmpty(row["BillTxnID"]) + " in " + year + ": ";
        if (voucher == 0)
            audit.Error(bill + "bears no voucher number");
        else
            audit.Note(bill + "its voucher " + std::to_string(voucher) +
                       " does not stand (deleted in the day book)");
    });
}

}  // namespace

void AuditStock(Audit& audit) {
    for (const std::string& year : audit.Years()) {
        CheckCounters(audit, year, ReadMovements(audit, year));
        CheckBills(audit, year);
    }
}

}  // namespace host
