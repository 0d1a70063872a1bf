#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "queries/Reading.h"

namespace queries {

// Days that both count; none is open to that side.
struct Range {
    std::optional<basic::Date> from = {}, upto = {};
    bool operator==(const Range&) const = default;
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
// A ledger without rows there has no entry, or noughts.
using SumsByLedger = std::map<std::int32_t, Sides>;
Sides SidesOf(const SumsByLedger& sums, std::int32_t ledger);  // 0 and 0 for no entry

// The sums of the ranges that an answer needs.
class LedgerSums {
  public:
    explicit LedgerSums(Reading& books) : books_(books) {}

    // Those of several ranges in one walk over the rows, which costs far less than one for each. What one of
    // them has no rows of is nought there.
    void Read(const std::vector<Range>& ranges);
    // One that was not read yet has no entry for a ledger without rows there. Valid as long as this lives.
    const SumsByLedger& Of(const Range& range);

  private:
    struct Entry {
        Range range;
        SumsByLedger sums;
    };
    Reading& books_;
    std::list<Entry> read_;
};

// Whether a range begins with the year or before, so that opening balances belong to it as they were entered.
bool BeginsTheYear(const Reading& books, const Range& range);

}  // namespace queries
