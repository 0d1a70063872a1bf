#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Sheet.h"

namespace queries {

// A ledger's line. Rupees; opening and closing are signed, debit positive.
struct TrialRow {
    std::int32_t id = 0;
    std::string name, group;
    bool deleted = false;
    double opening = 0;
    std::optional<double> debit, credit, closing;
};

// Report: of a range that begins with the year, what the report on its screen shows; there a ledger without
// a row up to the last day keeps the totals that stand, mostly those of the whole year. Kept 68. Any other
// range goes by the rows. Rows: always by the rows alone, so that the closing balances come to those of the
// openings.
enum class TrialBy { Report, Rows };

// Each ledger with figures in the year, in the order in which they were entered. Rows before the range go
// into the opening balance.
std::vector<TrialRow> TrialBalance(Reading& books, const Range& range = {}, TrialBy by = TrialBy::Report);
// By the rows, with sums that may have been read already.
std::vector<TrialRow> TrialBalance(Reading& books, const Range& range, LedgerSums& sums);
std::unique_ptr<SheetOf<TrialRow>> TrialBalanceSheet(Reading& books, const Range& range = {},
                                                     TrialBy by = TrialBy::Report);

}  // namespace queries
