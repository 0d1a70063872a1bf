#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Reading.h"
#include "queries/Sheet.h"

namespace queries {

// A line of a purchase order; an order without lines is one without an item.
struct OrderRow {
    std::int32_t number = 0;
    std::optional<basic::Date> date;
    std::int32_t supplier = 0;
    std::string name;  // of the supplier, as it was when the order was written
    std::optional<std::int32_t> item;
    std::string description;           // of the item
    double ordered = 0, received = 0;  // quantities
    double outstanding = 0;            // what is still to come; nothing of an order that was cancelled
    bool cancelled = false;
    std::string terms;  // of delivery
};

struct OrderFilter {
    Range days{};
    std::optional<std::int32_t> supplier{};
    bool outstanding = false;  // only lines of which something is still to come
    std::string words{};       // each stands in the supplier's or the item's name or in the terms
};

// The lines of the year's orders, by the orders' numbers, an order's as they were written.
std::vector<OrderRow> Orders(Reading& books, const OrderFilter& filter = {});
std::unique_ptr<SheetOf<OrderRow>> OrdersSheet(Reading& books, const OrderFilter& filter = {});

}  // namespace queries
