#pragma once

#include <memory>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Sheet.h"

namespace queries {

enum class Every { Day, Month };

// The ledgers of Cash In Hand, and those of Bank, over a day or a month: what came in and went out, and what
// was there at its end. Rupees, debit positive.
struct MoneyRow {
    Range days;
    Sides cash, bank;
    double cashBalance = 0, bankBalance = 0;
};

// The days of a range on which money moved, or all of its months; the year's where it is open.
std::vector<MoneyRow> CashAndBank(Reading& books, Every every, const Range& range = {});
std::unique_ptr<SheetOf<MoneyRow>> CashAndBankSheet(Reading& books, Every every, const Range& range = {});

}  // namespace queries
