#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Sheet.h"

namespace queries {

enum class Statement { Trading, ProfitAndLoss, BalanceSheet };

// A line of the final results. Rupees, each side a magnitude; in the Balance Sheet debits are the assets,
// credits the liabilities.
struct ResultRow {
    enum class Part { Head, Group, Ledger, Result, Total };

    Statement statement = Statement::Trading;
    Part part = Part::Head;
    std::string name;         // "Sales", "Gross Profit", "Difference In Opening"
    std::int32_t ledger = 0;  // of a Ledger
    double debit = 0, credit = 0;

    int Level() const { return part == Part::Head ? 0 : part == Part::Ledger ? 2 : 1; }
};

// The three statements as trees: groups with the sums of their sides, below each its ledgers that have a
// balance, then the result, which the next statement takes over, and the totals. Of a range that begins with
// the year they are what the report up to its last day shows on empty work tables. Of a later range Trading
// and Profit & Loss hold what was posted within it, without openings, so that the months add up to the year;
// the Balance Sheet is always as of the last day, with the result of the year so far. Without a line of
// trading or of profit and loss only the Balance Sheet is given.
std::vector<ResultRow> Results(Reading& books, const Range& range = {});
std::unique_ptr<SheetOf<ResultRow>> ResultsSheet(Reading& books, const Range& range = {});

// One of the statements alone, without its head.
const char* HeadOf(Statement statement);  // "Trading Account"
std::vector<ResultRow> StatementOf(Reading& books, Statement statement, const Range& range = {});
// With sums that may have been read already: of a range that begins later than the year, in Trading and in
// Profit & Loss, of the range; else of all up to its last day.
std::vector<ResultRow> StatementOf(Reading& books, Statement statement, const Range& range, LedgerSums& sums);
std::unique_ptr<SheetOf<ResultRow>> StatementSheet(Reading& books, Statement statement,
                                                   const Range& range = {});

}  // namespace queries
