#include "host/doors/ItemImport.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <string>

#include "core/DBCode.h"
#include "core/ItemRows.h"
#include "core/modGeneral.h"
#include "host/doors/VoucherCells.h"
#include "host/make/Fail.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace host {
namespace {

enum Column : std::size_t { Id, Name, Type, Unit, OpenStock, Reorder, Overflow, Price, Balance, Notes };
constexpr std::size_t Decimals = 6;  // of a quantity or a price

// The numbers and names that are taken, and by what.
class TakenItems {
  public:
    TakenItems() {
        const ado::RecordsetPtr rows =
            qm::ExecuteRecordset("Select Item_ID, Item_Name From ItemMaster" + qm::shared().FinYear);
        for (; !rows->Eof(); rows->MoveNext())
            Take(basic::TextOrEmpty((*rows)["Item_ID"]), basic::TextOrEmpty((*rows)["Item_Name"]),
                 "stands in the books already");
        rows->Close();
    }
    void Take(const std::string& id, const std::string& name, const std::string& where) {
        if (!id.empty()) ids_.emplace(id, Shown(name) + " " + where);
        names_.emplace(basic::FoldCase(name), where);
    }
    void BlameTaken(CsvTable::Row& row, const std::string& id, const std::string& name) const {
        if (const auto taken = ids_.find(id); taken != ids_.end())
            row.Blame(Id, "the number is taken: " + taken->second);
        if (const auto taken = names_.find(basic::FoldCase(name)); taken != names_.end())
            row.Blame(Name, Shown(name) + " " + taken->second);
    }

  private:
    std::map<std::string, std::string> ids_, names_;
};

// "" where the cell is empty or has a fault, which is blamed.
std::string NumberOf(CsvTable::Row& row) {
    const std::string cell = row.Text(Id);
    std::string reason;
    const std::string number = cell.empty() ? "" : ReadFigure(cell, 0, reason);
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    if (reason.empty() && !number.empty() &&
        (basic::WholeNumber(number) < 1 || basic::WholeNumber(number) > highest))
        reason = Shown(cell) + " is no number from 1 to " + basic::NumberText(highest);
    if (!reason.empty()) row.Blame(Id, reason);
    return number;
}

std::string TypeOf(CsvTable::Row& row) {
    const std::string cell = row.Text(Type);
    const std::vector<std::string>& types = qm::ItemTypes();
    const auto type = std::find_if(types.begin(), types.end(),
                                   [&](const std::string& one) { return basic::EqualText(one, cell); });
    if (type != types.end()) return *type;
    std::string known;
    for (const std::string& one : types) known += (known.empty() ? "" : ", ") + one;
    if (!cell.empty()) row.Blame(Type, Shown(cell) + " is no item type; the types are " + known);
    return {};
}

qm::ItemEntry EntryOf(CsvTable::Row& row) {
    qm::ItemEntry entry(qm::ItemFields().size());
    entry[Id] = NumberOf(row);
    entry[Name] = row.Text(Name);
    if (entry[Name].empty() && row.Whole()) row.Blame(Name, basic::Trim(qm::ItemNameMissing));
    entry[Type] = TypeOf(row);
    entry[Unit] = row.Text(Unit);
    for (const Column column : {OpenStock, Reorder, Overflow, Price, Balance}) {
        const std::string cell = row.Text(column);
        std::string reason;
        if (!cell.empty()) entry[column] = ReadFigure(cell, Decimals, reason);
        if (!reason.empty()) row.Blame(column, reason);
    }
    entry[Notes] = row.Text(Notes);
    return entry;
}

void AddItem(qm::ItemEntry entry) {
    if (entry[Id].empty()) entry[Id] = basic::NumberText(qm::NextItemNumber());
    if (!qm::ExecuteRecordset(qm::SelectItem(entry[Id]))->Eof())
        Fail("item " + entry[Id] + " stands in the books already");
    qm::InsertItem(entry);
}

}  // namespace

const std::vector<Head>& ItemHeads() {
    static const std::vector<Head> heads{{"item_id"},
                                         {"item_name", true, "name"},
                                         {"item_type", false, "type"},
                                         {"unit_desc", false, "unit"},
                                         {"open_stock"},
                                         {"reorder_level"},
                                         {"overflow_level"},
                                         {"unit_price", false, "price"},
                                         {"balance"},
                                         {"notes"}};
    return heads;
}

void CheckItems(CsvTable& table, qm::clQm&, ImportFile& file, const CheckProgress& progress) {
    TakenItems taken;
    bool first = true, numbered = false;
    table.ForEach(
        [&](CsvTable::Row& row) {
            const qm::ItemEntry entry = EntryOf(row);
            if (!row.Whole()) return;
            if (first) numbered = !entry[Id].empty();
            first = false;
            if (numbered != !entry[Id].empty()) row.Blame(Id, "a number must stand in every row or in none");
            taken.BlameTaken(row, entry[Id], entry[Name]);
            taken.Take(entry[Id], entry[Name], "stands in line " + std::to_string(row.Line()) + " already");
            if (row.Whole()) file.rows.push_back({row.Line(), [entry] { AddItem(entry); }});
        },
        progress);
}

}  // namespace host
