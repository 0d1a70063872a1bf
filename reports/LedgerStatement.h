#pragma once

#include <string>

#include "platform/ado/Recordset.h"
#include "platform/basic/Value.h"

namespace qm {

// The rows of one ledger's statement on a report's page, six columns wide; "" for a ledger without rows. `rs`
// holds its rows of tb_Ledger<FinYear> from the first day on, in the order in which they are to stand.
// Amounts are rupees. `opening` comes in as the signed balance before that day, debit positive, and leaves as
// the closing one.
std::string LedgerStatement(const std::string& name, basic::Date from, double& opening, ado::Recordset& rs);

}  // namespace qm
