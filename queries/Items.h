#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/Reading.h"
#include "queries/Sheet.h"

namespace queries {

// An item with its stock in the year of a Reading. Prices are rupees a unit.
struct ItemRow {
    std::int32_t id = 0;
    std::string name, type, unit;
    // The opening stock and the counters that receipts and issues raise, as they stand; none where they were
    // never written.
    std::optional<double> opening, received, issued;
    double net = 0;  // by the counters: opening less issued plus received
    // By the rows: opening and what the movements add, as the item ledger ends; none where it was left out.
    std::optional<double> moved;
    std::optional<double> price;
    double worth = 0;  // of the net stock at the item's price
    std::optional<double> reorderLevel, overflowLevel;
    bool reorder = false;  // the net stock is not above its reorder level
    bool over = false;     // it is above its overflow level
    std::string notes;
};

enum class ItemStock { Any, ToReorder, Over };
enum class ByMovements { AddedUp, LeftOut };  // which takes a walk over all movements of the year

// The items of the year, by number. `words` each stand in the name, the type or the notes.
std::vector<ItemRow> Items(Reading& books, const std::string& words = {}, ItemStock stock = ItemStock::Any,
                           ByMovements moved = ByMovements::AddedUp);
std::unique_ptr<SheetOf<ItemRow>> ItemsSheet(Reading& books, const std::string& words = {},
                                             ItemStock stock = ItemStock::Any,
                                             ByMovements moved = ByMovements::AddedUp);

}  // namespace queries
