#include "core/ItemRows.h"

#include "core/DBCode.h"
#include "core/NextNumber.h"
#include "core/modGeneral.h"

namespace qm {
namespace {

const std::vector<std::string> Types = {"N", "S", "S", "S", "N", "N", "N", "N", "N", "S"};

std::vector<std::string> WithoutKey(const std::vector<std::string>& all) {
    return {all.begin() + 1, all.end()};
}

std::string Items() {
    return "ItemMaster" + shared().FinYear;
}

}  // namespace

const std::vector<std::string>& ItemFields() {
    static const std::vector<std::string> fields = {
        "Item_ID",       "Item_Name",      "Item_Type",  "Unit_Desc", "Open_Stock",
        "Reorder_Level", "Overflow_Level", "Unit_Price", "Balance",   "Notes"};
    return fields;
}

const std::vector<std::string>& ItemTypes() {
    static const std::vector<std::string> types = {"Consumable", "Equipment", "Material", "Medicine",
                                                   "General"};
    return types;
}

double NextItemNumber() {
    return NumberAfter(ExecuteRecordset("SELECT  max(Item_ID)  FROM " + Items())->Fields(0).Value());
}

std::string SelectItem(const std::string& id) {
    return "SELECT  *  FROM " + Items() + " WHERE  Item_ID=" + id;
}

void InsertItem(const ItemEntry& entry) {
    InsertRecord(Items(), ItemFields(), entry, Types);
}

void UpdateItem(const ItemEntry& entry) {
    UpdateRecords(Items(), WithoutKey(ItemFields()), WithoutKey(entry), WithoutKey(Types),
                  "Item_ID =" + entry.front());
}

}  // namespace qm
