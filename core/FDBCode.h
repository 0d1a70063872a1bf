#pragma once

#include <cstdint>
#include <string>

#include "platform/ado/Connection.h"
#include "platform/basic/Value.h"

namespace qm {

// The row writer of the stock screens' vouchers: one row of tb_Ledger<FinYear> in a transaction of its own
// (nested in the caller's). Returns the voucher number, or 0 if no row was written; a failure is rolled back
// and logged as "Module-FDBCode". It leaves the balance text and the machine flag unset and does not touch
// the ledger's totals. The codes are those of VoucherType and LedgerSide; any other appends nothing, and the
// statement fails.
std::int32_t PostVoucherRow(std::int32_t voucherNo, const basic::Value& date, std::int32_t typeCode,
                            std::int32_t sideCode, const std::string& narration, double amount,
                            std::int32_t ledgerCode, const std::string& ledgerName);

}  // namespace qm
