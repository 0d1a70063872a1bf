#pragma once

#include <string>

#include "platform/ado/Recordset.h"

namespace qm {

// Which ledgers are offered for a line. The Journal list leaves none out: its test joins two inequalities
// with Or. None of the three tests whether a ledger is marked as deleted.
enum class LedgerListKind { Stays, Bank, Journal, All };

// The list for a line, by the voucher's type and the line's side.
LedgerListKind LedgerListFor(const std::string& voucherType, const std::string& side);

// The ledgers behind the drop-down list of a voucher's line, kept open between two lists.
class LedgerList {
  public:
    // Opens the ledgers of that kind, by name, and gives them as the list text of a grid's column: id, name
    // and balance, of which the name goes into the cell.
    std::string Fill(LedgerListKind kind);
    // The balance of a ledger of the list as a text: rounded to 2 places, with the leading blank of the old
    // conversion, then "Dr" or "Cr". Any side but "D" counts as credit here, unlike in posting. A ledger
    // whose debit total is Null has no figure: "Dr". Raises 3021 for a ledger that the list does not hold.
    // Kept 43.
    std::string LedgerBalanceText(const std::string& ledgerId);
    void Close();

  private:
    std::string CurrentBalanceText();

    ado::RecordsetPtr ledgers_;
};

}  // namespace qm
