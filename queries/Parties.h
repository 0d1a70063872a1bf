#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Sheet.h"

namespace queries {

// What a debtor owes, or what is owed to a supplier, as of a day; in rupees, debit positive: they owe. What
// was paid settles the oldest first, so the parts are of the newest rows; together they are the balance.
struct PartyRow {
    std::int32_t id = 0;
    std::string name, group;
    double balance = 0;
    // Of rows of the last 30 days, of 31 to 60, of 61 to 90, and older. The opening of the year counts as a
    // row of the day before it.
    double upto30 = 0, upto60 = 0, upto90 = 0, older = 0;
};

// Which parties: both sides, those that owe, or those that something is owed to.
enum class Owing { Both, ToUs, ByUs };

struct PartyFilter {
    Owing owing = Owing::Both;
    // Days, 30, 60 or 90, for those of whose balance a part is older than that, and not older than this; 0
    // for all, and without an end.
    int olderThan = 0, upto = 0;
};

// The ledgers of Debtors and Suppliers with a balance, by name. Without a day it is today's, at latest the
// last of the year; what is dated later is left out.
std::vector<PartyRow> Parties(Reading& books, std::optional<basic::Date> asOf = {},
                              const PartyFilter& filter = {});
std::unique_ptr<SheetOf<PartyRow>> PartiesSheet(Reading& books, std::optional<basic::Date> asOf = {},
                                                const PartyFilter& filter = {});

}  // namespace queries
