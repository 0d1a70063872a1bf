#pragma once

#include <cstdint>
#include <string>

#include "platform/ado/Connection.h"
#include "platform/basic/Value.h"

namespace qm {

// Codes of PostVoucherRow. Any other appends nothing, and the statement fails.
enum TypeCode : std::int32_t { Journal = 0, Payment = 1, Receipt = 2, Contra = 3 };
enum SideCode : std::int32_t { Debit = 0, Credit = 1 };

// The row writer of the stock screens' vouchers: one row of tb_Ledger<FinYear> in a transaction of its own
// (nested in the caller's). Returns the voucher number, or 0 if no row was written; a failure is rolled back
// and logged as "Module-FDBCode". It leaves the balance text and the machine flag unset and does not touch
// the ledger's totals.
std::int32_t PostVoucherRow(std::int32_t voucherNo, const basic::Value& date, std::int32_t typeCode,
                            std::int32_t sideCode, const std::string& narration, double amount,
                            std::int32_t ledgerCode, const std::string& ledgerName);

// Takes a voucher's amounts out of its ledgers' totals and deletes its rows. The updates name no year, so the
// totals of every year's row go down: kept 4, the day book's delete works so. No transaction and no trap.
void ReverseVoucher(const std::int32_t& voucherNo, ado::Connection& connection);

}  // namespace qm
