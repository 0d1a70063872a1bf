#pragma once

#include <memory>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Sheet.h"

namespace queries {

// The months of a range, each as far as the range reaches; the year's where it is open. None where it ends
// before it begins.
std::vector<Range> MonthsOf(const Reading& books, const Range& range);

// What was traded in a month, in rupees.
struct MonthRow {
    Range days;
    double sales = 0;                   // credits less debits of the ledgers of Sales
    double purchases = 0;               // debits less credits of the ledgers of Purchase
    double receipts = 0, payments = 0;  // what the vouchers of these types debit
};

std::vector<MonthRow> Months(Reading& books, const Range& range = {});
std::unique_ptr<SheetOf<MonthRow>> MonthsSheet(Reading& books, const Range& range = {});

}  // namespace queries
