#pragma once

#include <cstdint>
#include <string>

#include "platform/ado/Recordset.h"
#include "platform/basic/Value.h"

namespace qm {

// The rows of one item's movements on a report's page, eight columns wide; "" for an item without any. `rs`
// holds its rows of tblItemLed<FinYear> from the first day on, in the order in which they are to stand.
// `opening` comes in as the quantity before that day and leaves as the closing one. Raises 94 "Invalid use of
// Null" for a Null note.
std::string StockLedger(std::int16_t itemId, const std::string& name, basic::Date from, double& opening,
                        ado::Recordset& rs);

}  // namespace qm
