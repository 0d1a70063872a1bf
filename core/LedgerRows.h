#pragma once

#include <optional>
#include <string>

#include "core/LedgerSide.h"
#include "core/PartyBoxes.h"

namespace qm {

// What a user enters for a ledger. All texts go into the statements as they stand: a single quote in one of
// them breaks the statement.
struct LedgerEntry {
    std::string Name;
    std::string GroupName;   // its group's name, of the first level; "" where none is chosen
    std::string OpeningBal;  // as typed
    std::optional<LedgerSide> BalType;
    PartyDetails Details;  // of a party
};

// The texts that refuse an entry, as the boxes show them.
inline constexpr const char* OpeningMissing = "Please Enter Opening Balance";
inline constexpr const char* BalanceTypeMissing = "Please Select a Balance Type";
inline constexpr const char* LedgerNameIsGroup = "Ledger Name And Group Name Cannot be Same";
inline constexpr const char* LedgerNameInUse =
    "A ledger with the specified name already exists\r\n\r\nPlease choose another name";

// What is missing of an entry: the first of four tests, told of the new ledger and of the changed one alike.
enum class LedgerField { Name, Group, OpeningBal, BalType };
struct LedgerFault {
    LedgerField Field;
    const char* Text;
};
std::optional<LedgerFault> MissingOf(const LedgerEntry& entry);

// A ledger lives in three tables: a leaf of Group_Head_Master, the row of Ledger_Master under that leaf's
// Group_Id, and in Ledger_Details one row for each year. These keep the three together. None has a
// transaction of its own, and what fails is raised.

// Whether a group or a ledger bears the name; ledgers that are marked as deleted count. A double quote in the
// name breaks the statement.
bool LedgerNameTaken(const std::string& name);

// The numbers of groups and ledgers are kept in 16 bits. Kept 31.
inline constexpr int HighestLedgerId = 32767;

// Adds the rows of a new ledger. Its number is that of its leaf: there is no counter of ledgers. Only the
// current year gets a row, whose totals start Null. Each detail is stored with a blank before it.
void InsertLedger(const LedgerEntry& entry);

// Writes the ledger's rows again.
void UpdateLedgerRows(const std::string& ledgerId, const LedgerEntry& entry);

// Writes the opening balance, the last step of the change. Its rows of every year take it, and the current
// year: kept 23.
void WriteOpeningBalance(const std::string& ledgerId, const std::string& openingBal, LedgerSide side);

// Whether the current year's vouchers touch the ledger; other years' are not looked at. Kept 30.
bool LedgerHasVouchers(const std::string& ledgerId);

// What refuses a delete where they do.
inline constexpr const char* LedgerInUse =
    "One or more transactions already exist for the selected ledger\r\n\r\nCannot delete !!!";

// Removes the ledger, its leaf if that meets `leafCondition` too, and its row of the current year; the rows
// of other years stay behind.
void DeleteLedgerRows(const std::string& ledgerId, const std::string& leafCondition);

}  // namespace qm
