#pragma once

#include <cstdint>

#include "platform/ado/Connection.h"

namespace qm {

// Takes a voucher's amounts out of its ledgers' totals and deletes its rows. The updates name no year, so the
// totals of every year's row go down: kept 4, the day book's delete works so. No transaction and no trap.
void ReverseVoucher(const std::int32_t& voucherNo, ado::Connection& connection);

}  // namespace qm
