// A ledger is a leaf of the group tree, a row of Ledger_Master and a detail row for each year: they are held
// against each other.
#include "core/LedgerSide.h"
#include "host/audit/Audit.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

using Id = std::int32_t;

struct Chart {
    std::map<Id, std::string> primary, leaves, ledgers;  // names by number
    std::set<std::string> primaryNames;                  // folded
};

std::string Named(Id id, const std::string& name) {
    return "ledger " + std::to_string(id) + " '" + name + "'";
}

Chart ReadTree(Audit& audit) {
    Chart chart;
    audit.Each("Select Group_Id, Group_Head_Name, Parent_Id From Group_Head_Master",
               [&](ado::Recordset& row) {
                   const Id id = IdOf(row, "Group_Id");
                   const std::string name = basic::TextOrEmpty(row["Group_Head_Name"]);
                   const bool isPrimary = IdOf(row, "Parent_Id") == 0;
                   (isPrimary ? chart.primary : chart.leaves)[id] = name;
                   if (isPrimary) chart.primaryNames.insert(basic::FoldCase(name));
               });
    return chart;
}

void CheckLedgers(Audit& audit, Chart& chart) {
    audit.Each("Select Ledger_ID, Name, Group_Id, PrimaryGrp From Ledger_Master", [&](ado::Recordset& row) {
        const Id id = IdOf(row, "Ledger_ID");
        const std::string name = basic::TextOrEmpty(row["Name"]);
        const std::string primary = basic::TextOrEmpty(row["PrimaryGrp"]);
        if (!chart.ledgers.emplace(id, name).second) audit.Error(Named(id, name) + ": stands twice");
        const auto leaf = chart.leaves.find(id);
        if (leaf == chart.leaves.end())
            audit.Error(Named(id, name) + ": has no leaf in the group tree");
        else if (leaf->second != name)
            audit.Note(Named(id, name) + ": is named '" + leaf->second + "' in the group tree");
        if (!chart.primary.contains(IdOf(row, "Group_Id")))
            audit.Error(Named(id, name) + ": its group is no primary group of the tree, so no tree shows it");
        if (!chart.primaryNames.contains(basic::FoldCase(primary)))
            audit.Error(Named(id, name) + ": its primary group '" + primary + "' does not stand");
    });
    for (const auto& [id, name] : chart.leaves)
        if (!chart.ledgers.contains(id))
            audit.Error("leaf " + std::to_string(id) + " '" + name + "': has no ledger");
}

// Sums keep what was taken off and put on again: a rebuild of the totals takes most of it away.
void CheckFigures(Audit& audit, ado::Recordset& row) {
    const std::pair<const char*, const char*> figures[] = {{"Opening_Bal", "opening balance"},
                                                           {"Closing_Bal", "closing balance"},
                                                           {"LedDetDRTxnTot", "debit total"},
                                                           {"LedDetCRTxnTot", "credit total"}};
    for (const auto& [field, name] : figures) {
        const double amount = basic::NumberOrZero(row[field]);
        if (const std::string fault = AmountFault(amount); !fault.empty())
            audit.Note("details of ledger " + std::to_string(IdOf(row, "Ledger_ID")) + " in " +
                       std::to_string(IdOf(row, "Fnncl_Yr")) + ": the " + name + " " + Digits(amount) + " " +
                       fault);
    }
}

void CheckDetails(Audit& audit, const Chart& chart) {
    std::map<std::pair<Id, Id>, int> rowsOf;
    audit.Each("Select * From Ledger_Details", [&](ado::Recordset& row) {
        const Id id = IdOf(row, "Ledger_ID"), year = IdOf(row, "Fnncl_Yr");
        const std::string side = basic::TextOrEmpty(row["Bal_Type"]);
        ++rowsOf[{id, year}];
        if (!qm::SideOfLetter(side))
            audit.Error("details of ledger " + std::to_string(id) + " in " + std::to_string(year) +
                        ": the balance type is '" + side + "', neither D nor C");
        CheckFigures(audit, row);
    });
    for (const auto& [key, count] : rowsOf) {
        const auto ledger = chart.ledgers.find(key.first);
        const std::string year = std::to_string(key.second);
        if (ledger == chart.ledgers.end())
            audit.Note("details of ledger " + std::to_string(key.first) + " in " + year +
                       ": their ledger is gone (deleted in another year)");
        else if (count > 1)
            audit.Note(Named(key.first, ledger->second) + ": has " + std::to_string(count) +
                       " detail rows in " + year);
    }
    for (const auto& [id, name] : chart.ledgers) {
        const auto first = rowsOf.lower_bound({id, 0});
        if (first == rowsOf.end() || first->first.first != id)
            audit.Error(Named(id, name) + ": has no detail row in any year");
    }
}

}  // namespace

void AuditLedgers(Audit& audit) {
    Chart chart = ReadTree(audit);
    CheckLedgers(audit, chart);
    CheckDetails(audit, chart);
}

}  // namespace host
