#pragma once

#include <cstddef>
#include <ostream>

#include "queries/Reading.h"

namespace host {

struct JournalSize {
    std::size_t ledgers = 0, vouchers = 0, rows = 0;
};

// Writes a year in the journal format of plain-text accounting: a ledger is the account "Group:Name", the
// opening balances are one transaction on the year's first day, each voucher is one with its number as the
// code and its type as a tag. Debits are positive. What does not balance in the books stands in parentheses,
// which those programs count without asking for a balance. All of it is of one moment. UTF-8.
JournalSize WriteJournal(queries::Reading& books, std::ostream& out);

}  // namespace host
