#pragma once

#include <string>

#include "platform/ado/Recordset.h"

namespace qm {

// The rows of a trial balance on a report's page, six columns wide; "" without ledgers. `rs` holds the
// ledgers with their details of the year, whose totals and closing balances are shown as they stand. Rupees.
std::string TrialBalance(ado::Recordset& rs);

}  // namespace qm
