#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"

namespace queries {

// The groups that the program knows by their names.
inline constexpr const char *DebtorsGroup = "Debtors", *SuppliersGroup = "Suppliers", *SalesGroup = "Sales",
                            *PurchaseGroup = "Purchase", *CashGroup = "Cash In Hand", *BankGroup = "Bank";

// The numbers of the ledgers of a primary group, each once; its name is found without regard to case.
std::vector<std::int32_t> LedgersOf(Reading& books, const std::string& group);
// The condition that a row of tb_Ledger<year> is of such a ledger.
std::string OfGroup(Reading& books, const std::string& group);

// What was posted to a group's ledgers, by day number.
std::map<std::int32_t, Sides> SumsByDay(Reading& books, const std::string& group, const Range& range);
// The signed openings of the year of a group's ledgers, debit positive.
double OpeningOf(Reading& books, const std::string& group);

}  // namespace queries
