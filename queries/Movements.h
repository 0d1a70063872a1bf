#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/RowPages.h"

namespace queries {

// A movement of an item, as a receipt or an issue wrote it.
struct MovementRow {
    ado::RowKey key = 0;      // 0 for one that was removed after the list was read; the rest is empty then
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

// The movements that a filter leaves, by date, the receipts of a day before its issues; by page. Balances are
// the item ledger's: the opening stock and what moved before the first day, then by each row the quantity of
// its type; an item whose opening stock is Null begins with 0. They are worked out at once, in one pass over
// the year, with 24 bytes for each movement; its key and its balance are kept, 12 bytes.
class MovementLines {
  public:
    MovementLines(Reading& books, const MovementFilter& filter, const Step& step = {});
    void ReadBy(Reading& books) { books_ = &books; }  // from now on

    std::size_t Count() const { return keys_.Size(); }
    std::vector<MovementRow> Page(std::size_t first, std::size_t count) const;
    // Where a movement stands that Page gave, by its key.
    std::optional<std::size_t> PlaceOf(ado::RowKey key) const { return keys_.PlaceOf(key); }

  private:
    class Pass;

    Reading* books_;
    std::string select_;
    ado::RowKeys keys_;
    std::vector<double> balances_;  // behind each
};

using MovementSheet = PagedSheet<MovementRow, MovementLines>;
std::unique_ptr<MovementSheet> ListMovements(Reading& books, const MovementFilter& filter = {},
                                             const Step& step = {});

// What the year's movements add to the stock of each item; none for an item that never moved.
using Quantities = std::unordered_map<std::int32_t, double>;
Quantities MovedQuantities(Reading& books);

}  // namespace queries
