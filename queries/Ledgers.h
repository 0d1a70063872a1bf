#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/Reading.h"
#include "queries/Sheet.h"

namespace queries {

// A ledger in the year of a Reading. Amounts are rupees; opening and closing balances are signed, debit
// positive.
struct LedgerRow {
    std::int32_t id = 0;
    std::string name;
    std::string group;                          // its primary group
    bool deleted = false;                       // marked; its rows and figures count on
    double opening = 0;                         // of the year
    double debit = 0, credit = 0, closing = 0;  // by the rows of the year
    // The running totals as they stand, which screens and the class keep: none where nothing was ever posted.
    std::optional<double> postedDebit, postedCredit, postedClosing;
};

// Each ledger with figures in the year, by name; one whose figures stand twice comes twice.
std::vector<LedgerRow> Ledgers(Reading& books);
// The number of the ledger of a name, without regard to case: the first of that name.
std::optional<std::int32_t> LedgerCalled(Reading& books, const std::string& name);

std::unique_ptr<SheetOf<LedgerRow>> LedgersSheet(Reading& books);

}  // namespace queries
