#pragma once

#include <string>
#include <vector>

namespace qm {

// The rows of the current year's items, as the item screen writes them. The issued and received quantities
// are no fields of it, so nothing here touches them. Kept 50. Failures are raised.

// The fields that are written; the first, Item_ID, is the key. An entry has a text for each: a blank one is
// written as Null, a number goes into the statement as it stands.
const std::vector<std::string>& ItemFields();
using ItemEntry = std::vector<std::string>;

const std::vector<std::string>& ItemTypes();  // in the order in which the screen lists them

// What refuses an item without a name.
inline constexpr const char* ItemNameMissing = " Please Enter Item Name ";

double NextItemNumber();                        // the number after the highest
std::string SelectItem(const std::string& id);  // the statement that reads one item

// Each tells the count of rows in a box.
void InsertItem(const ItemEntry& entry);
void UpdateItem(const ItemEntry& entry);

}  // namespace qm
