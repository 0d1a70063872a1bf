// The stock of each year: an item's counters are the sums of its movements, and days lie in the year.
#include "host/audit/Audit.h"

namespace host {
namespace {

using Id = std::int32_t;
using Kind = Subject::Kind;

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
                audit.Error({Kind::Item, item, year},
                            "item " + std::to_string(item) + " '" + basic::TextOrEmpty(row["Item_Name"]) +
                                "' of " + year + ": counters say received " + Rupees(received) +
                                " and issued " + Rupees(issued) + ", movements " + Rupees(sum.received) +
                                " and " + Rupees(sum.issued));
        });
    for (const auto& [item, sum] : sums)
        audit.Error({item == 0 ? Kind::Movements : Kind::Item, item, year},
                    "movements of " + year + ": item " + std::to_string(item) + " does not stand");
}

using SubjectOf = std::function<Subject(ado::Recordset&)>;

void CheckDays(Audit& audit, const std::string& year, const std::string& what, const std::string& rows,
               const std::string& number, const std::string& day, const SubjectOf& subjectOf) {
    std::map<Id, std::pair<Subject, std::string>> outside;
    audit.Each("Select * From " + rows, [&](ado::Recordset& row) {
        if (const std::string text = DayOutside(row[day], year); !text.empty())
            outside.emplace(IdOf(row, number), std::pair(subjectOf(row), text));
    });
    for (const auto& [id, dated] : outside)
        audit.Error(dated.first, what + " " + std::to_string(id) + " of " + year + ": dated " + dated.second +
                                     ", outside the year");
}

}  // namespace

void AuditStock(Audit& audit) {
    for (const std::string& year : audit.Years()) {
        CheckCounters(audit, year, ReadMovements(audit, year));
        CheckDays(audit, year, "stock movement", "tblItemLed" + year, "ItemLedTrnNo", "ItemLedTrnDate",
                  [&](ado::Recordset& row) { return MovementOf(row, year); });
        CheckDays(audit, year, "order", "tblPO" + year, "poNumber", "Podate", [&](ado::Recordset& row) {
            return Subject{Kind::Order, IdOf(row, "poNumber"), year};
        });
    }
}

}  // namespace host
