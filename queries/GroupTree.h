#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Sheet.h"
#include "queries/TrialBalance.h"

namespace queries {

// A primary group, or a ledger below it. Rupees; opening and closing are signed, debit positive.
struct TreeRow {
    int level = 0;            // 0 a group, 1 a ledger
    std::int32_t ledger = 0;  // 0 for a group
    std::string name;
    bool deleted = false;
    double opening = 0;
    std::optional<double> debit = 0, credit = 0, closing = 0;  // none where the trial balance has none
};

// The groups in the order in which lists show them, each with the sums of its ledgers, which follow by name.
// Ledgers whose group does not stand come last, below a group without a name.
std::vector<TreeRow> GroupTree(Reading& books, const Range& range = {}, TrialBy by = TrialBy::Rows);
std::unique_ptr<SheetOf<TreeRow>> GroupTreeSheet(Reading& books, const Range& range = {});
// The trial balance as that tree, without the groups that have no ledgers.
std::vector<TreeRow> TrialTree(Reading& books, const Range& range = {}, TrialBy by = TrialBy::Report);
std::vector<TreeRow> TrialTree(Reading& books, const Range& range, LedgerSums& sums);
std::unique_ptr<SheetOf<TreeRow>> TrialTreeSheet(Reading& books, const Range& range = {},
                                                 TrialBy by = TrialBy::Report);

}  // namespace queries
