// A ledger is a leaf of the group tree, a row of Ledger_Master and a detail row for each year: they are held
// against each other.
#include "core/LedgerSide.h"
#include "host/audit/Audit.h"
#include "host/audit/YearList.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

using Id = std::int32_t;
using Kind = Subject::Kind;

struct Chart {
    std::map<Id, std::string> primary, leaves, ledgers;  // names by number
    std::set<std::string> primaryNames;                  // folded
    std::map<std::pair<Id, Id>, int> details;            // rows of a ledger in a year
    std::vector<Year> years;
};

std::string Named(Id id, const std::string& name) {
    return "ledger " + std::to_string(id) + " '" + name + "'";
}

Chart ReadTree(Audit& audit) {
    Chart chart;
    chart.years = ReadYears(audit.Books());
    audit.Each("Select Group_Id, Group_Head_Name, Parent_Id From Group_Head_Master",
               [&](ado::Recordset& row) {
                   const Id id = IdOf(row, "Group_Id");
                   const std::string name = basic::TextOrEmpty(row["Group_Head_Name"]);
                   const bool isPrimary = IdOf(row, "Parent_Id") == 0;
                   (isPrimary ? chart.primary : chart.leaves)[id] = name;
                   if (isPrimary) chart.primaryNames.insert(basic::FoldCase(name));
               });
    audit.Each("Select Ledger_ID, Fnncl_Yr From Ledger_Details", [&](ado::Recordset& row) {
        ++chart.details[{IdOf(row, "Ledger_ID"), IdOf(row, "Fnncl_Yr")}];
    });
    return chart;
}

bool HasDetails(const Chart& chart, Id ledger) {
    const auto first = chart.details.lower_bound({ledger, 0});
    return first != chart.details.end() && first->first.first == ledger;
}

// The screen shows a ledger in a year in which it has details: the current one, if that is such.
Subject AsShown(const Chart& chart, Id ledger) {
    if (!HasDetails(chart, ledger)) return {Kind::Lines, ledger};
    Subject shown{Kind::Ledger, ledger};
    for (const Year& year : chart.years)
        if ((year.current || shown.year.empty()) &&
            chart.details.contains({ledger, basic::ToLong(basic::PrefixValue(year.ShortForm()))}))
            shown.year = year.ShortForm();
    return shown;
}

void CheckLedgers(Audit& audit, Chart& chart) {
    audit.Each("Select Ledger_ID, Name, Group_Id, PrimaryGrp From Ledger_Master", [&](ado::Recordset& row) {
        const Id id = IdOf(row, "Ledger_ID");
        const std::string name = basic::TextOrEmpty(row["Name"]);
        const std::string primary = basic::TextOrEmpty(row["PrimaryGrp"]);
        const Subject ledger = AsShown(chart, id);
        if (!chart.ledgers.emplace(id, name).second) audit.Error(ledger, Named(id, name) + ": stands twice");
        const auto leaf = chart.leaves.find(id);
        if (leaf == chart.leaves.end())
            audit.Error(ledger, Named(id, name) + ": has no leaf in the group tree");
        else if (leaf->second != name)
            audit.Note(ledger, Named(id, name) + ": is named '" + leaf->second + "' in the group tree");
        if (!chart.primary.contains(IdOf(row, "Group_Id")))
            audit.Error(ledger,
                        Named(id, name) + ": its group is no primary group of the tree, so no tree shows it");
        if (!chart.primaryNames.contains(basic::FoldCase(primary)))
            audit.Error(ledger, Named(id, name) + ": its primary group '" + primary + "' does not stand");
    });
    for (const auto& [id, name] : chart.leaves)
        if (!chart.ledgers.contains(id))
            audit.Error({}, "leaf " + std::to_string(id) + " '" + name + "': has no ledger");
}

std::string DetailsOf(Id ledger, const std::string& year) {
    return "details of ledger " + std::to_string(ledger) + " in " + year + ": ";
}

// Sums keep what was taken off and put on again: a rebuild of the totals takes most of it away. An opening
// is typed.
void CheckFigures(Audit& audit, ado::Recordset& row, Id ledger, const std::string& year) {
    const struct {
        const char *field, *name;
        Kind kind;
    } figures[] = {{"Opening_Bal", "opening balance", Kind::Ledger},
                   {"Closing_Bal", "closing balance", Kind::Totals},
                   {"LedDetDRTxnTot", "debit total", Kind::Totals},
                   {"LedDetCRTxnTot", "credit total", Kind::Totals}};
    for (const auto& [field, name, kind] : figures) {
        const double amount = basic::NumberOrZero(row[field]);
        if (const std::string fault = AmountFault(amount); !fault.empty())
            audit.Note({kind, ledger, year},
                       DetailsOf(ledger, year) + "the " + name + " " + Digits(amount) + " " + fault);
    }
}

void CheckDetails(Audit& audit, const Chart& chart) {
    audit.Each("Select * From Ledger_Details", [&](ado::Recordset& row) {
        const Id id = IdOf(row, "Ledger_ID");
        const std::string year = std::to_string(IdOf(row, "Fnncl_Yr"));
        const std::string side = basic::TextOrEmpty(row["Bal_Type"]);
        if (!qm::SideOfLetter(side))
            audit.Error({Kind::Ledger, id, year},
                        DetailsOf(id, year) + "the balance type is '" + side + "', neither D nor C");
        CheckFigures(audit, row, id, year);
    });
    for (const auto& [key, count] : chart.details) {
        const auto ledger = chart.ledgers.find(key.first);
        const std::string year = std::to_string(key.second);
        if (ledger == chart.ledgers.end())
            audit.Note({Kind::Lines, key.first, year},
                       DetailsOf(key.first, year) + "their ledger is gone (deleted in another year)");
        else if (count > 1)
            audit.Note({Kind::Ledger, key.first, year}, Named(key.first, ledger->second) + ": has " +
                                                            std::to_string(count) + " detail rows in " +
                                                            year);
    }
    for (const auto& [id, name] : chart.ledgers)
        if (!HasDetails(chart, id))
            audit.Error({Kind::Lines, id}, Named(id, name) + ": has no detail row in any year");
}

}  // namespace

void AuditLedgers(Audit& audit) {
    Chart chart = ReadTree(audit);
    CheckLedgers(audit, chart);
    CheckDetails(audit, chart);
}

}  // namespace host
