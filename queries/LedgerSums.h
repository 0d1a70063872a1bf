#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "queries/Reading.h"

namespace queries {

// Days that both count; none is open to that side.
struct Range {
    std::optional<basic::Date> from, upto;
};

// " Where LedgerTxnDate >= ... And LedgerTxnDate <= ..." of a select on tb_Ledger<year>, "" for all days.
std::string DaysWhere(const Range& range);

struct Sides {
    double debit = 0, credit = 0;
    double Net() const { return debit - credit; }
};

// The sums of the voucher rows in a range by ledger, with the digits that the running totals get from them.
// A ledger without rows there has no entry.
std::map<std::int32_t, Sides> SumsByLedger(Reading& books, const Range& range = {});

// Opening_Bal with the sign of its side: credit negative; 0 for a Null one.
double SignedOpening(ado::Recordset& details);

}  // namespace queries
