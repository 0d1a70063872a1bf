#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Reading.h"
#include "queries/Sheet.h"

namespace queries {

// A movement of an item, as a receipt or an issue wrote it.
struct MovementRow {
    std::int32_t number = 0;  // of the receipt or issue
    std::optional<basic::Date> date;
    std::string type;  // "Receipt" or "Issue"
    std::int32_t item = 0;
    std::string name;  // of the item, as it was then
    std::optional<double> received, issued;
    double balance = 0;  // of the item behind this row
    std::optional<double> price, landingCost;
    std::optional<std::int32_t> order;
    std::string bill, note;
};

struct MovementFilter {
    Range days{};
    std::string type{};  // "" for all
    std::optional<std::int32_t> item{};
    std::string words{};  // each stands in the name, the bill's number or the note
};

// The movements that a filter leaves, by date, the receipts of a day before its issues. Balances are the item
// ledger's: the opening stock and what moved before the first day, then by each row the quantity of its type;
// an item whose opening stock is Null begins with 0.
std::vector<MovementRow> Movements(Reading& books, const MovementFilter& filter = {});
std::unique_ptr<SheetOf<MovementRow>> MovementsSheet(Reading& books, const MovementFilter& filter = {});

// What the year's movements add to the stock of each item; none for an item that never moved.
std::map<std::int32_t, double> MovedQuantities(Reading& books);

}  // namespace queries
