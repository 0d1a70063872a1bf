#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/ado/Recordset.h"

namespace qm {

// A ledger's balance in rupees is one signed number, debit positive: the opening with the sign of its side,
// plus the debit total, less the credit total.

// Opening_Bal of a row of Ledger_Details with the sign of its Bal_Type; none where that is neither "D" nor
// "C". Raises 94 "Invalid use of Null" for a Null one.
std::optional<double> SignedOpening(ado::Recordset& details);

// The magnitude and the side: "1500Dr", "250Cr"; 0 reads "0Dr". Kept 13. Without `figure` the magnitude
// stands with up to 15 digits.
std::string BalanceText(double balance, const std::function<std::string(double)>& figure = {});

}  // namespace qm
