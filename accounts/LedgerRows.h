#pragma once

#include <string>

#include "accounts/PartyBoxes.h"
#include "core/LedgerSide.h"

namespace qm {

// What a user enters for a ledger. All texts go into the statements as they stand: a single quote in one of
// them breaks the statement.
struct LedgerEntry {
    std::string Name;
    std::string GroupName;   // its group's name, of the first level
    std::string OpeningBal;  // as typed
    LedgerSide BalType = LedgerSide::Debit;
    PartyDetails Details;  // of a party
};

// A ledger lives in three tables: a leaf of Group_Head_Master, the row of Ledger_Master under that leaf's
// Group_Id, and in Ledger_Details one row for each year. These keep the three together. None has a
// transaction of its own, and what fails is raised.

// Whether a group or a ledger bears the name; ledgers that are marked as deleted count. A double quote in the
// name breaks the statement.
bool LedgerNameTaken(const std::string& name);

// Adds the rows of a new ledger. Its number is that of its leaf: there is no counter of ledgers. Only the
// current year gets a row, whose totals start Null. Each detail is stored with a blank before it.
void InsertLedger(const LedgerEntry& entry);

// Writes the ledger's rows again. Those of every year take the opening balance and the current year: kept 23.
void UpdateLedgerRows(const std::string& ledgerId, const LedgerEntry& entry);

// Whether the current year's vouchers touch the ledger; other years' are not looked at. Kept 30.
bool LedgerHasVouchers(const std::string& ledgerId);

// What refuses a delete where they do.
inline constexpr const char* LedgerInUse =
    "One or more transactions already exist for the selected ledger\r\n\r\nCannot delete !!!";

// Removes the ledger, its leaf if that meets `leafCondition` too, and its row of the current year; the rows
// of other years stay behind.
void DeleteLedgerRows(const std::string& ledgerId, const std::string& leafCondition);

}  // namespace qm
