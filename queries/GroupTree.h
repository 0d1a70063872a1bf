#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Sheet.h"

namespace queries {

// A primary group, or a ledger below it. Rupees; opening and closing are signed, debit positive.
struct TreeRow {
    int level = 0;            // 0 a group, 1 a ledger
    std::int32_t ledger = 0;  // 0 for a group
    std::string name;
    bool deleted = false;
    double opening = 0, debit = 0, credit = 0, closing = 0;  // by the rows of the range
};

// The groups in the order in which lists show them, each with the sums of its ledgers, which follow by name.
// Ledgers whose group does not stand come last, below a group without a name.
std::vector<TreeRow> GroupTree(Reading& books, const Range& range = {});
std::unique_ptr<SheetOf<TreeRow>> GroupTreeSheet(Reading& books, const Range& range = {});

}  // namespace queries
