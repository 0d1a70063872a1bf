#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "queries/Reading.h"

namespace queries {

// Days that both count; none is open to that side.
struct Range {
    std::optional<basic::Date> from = {}, upto = {};
};

// "LedgerTxnDate >= ..." and "LedgerTxnDate <= ...", as far as the range has ends.
std::vector<std::string> DayConditions(const Range& range);
// "1-Apr-2001 to 31-Mar-2002": the year's days where the range is open.
std::string TitleOf(const Reading& books, const Range& range);

// An amount on a side of a table: Null where it is 0.
basic::Value SideValue(double amount);

struct Sides {
    double debit = 0, credit = 0;
    double Net() const { return debit - credit; }
};

// The sums of the voucher rows in a range by ledger, with the digits that the running totals get from them.
// A ledger without rows there has no entry.
std::map<std::int32_t, Sides> SumsByLedger(Reading& books, const Range& range = {});

Sides SidesOf(const std::map<std::int32_t, Sides>& sums, std::int32_t ledger);  // 0 and 0 for no entry

// Whether a range begins with the year or before, so that opening balances belong to it as they were entered.
bool BeginsTheYear(const Reading& books, const Range& range);

}  // namespace queries
