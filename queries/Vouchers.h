#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "core/VoucherType.h"
#include "queries/LedgerSums.h"
#include "queries/RowPages.h"

namespace queries {

// One line of a voucher: an amount in rupees on one side of one ledger.
struct VoucherLine {
    ado::RowKey key = 0;  // 0 for a line that was removed after the list was read; the rest is empty then
    std::int32_t number = 0;
    std::optional<basic::Date> date;
    std::string type;  // "Receipt"
    std::int32_t ledger = 0;
    std::string name;  // of the ledger, as it was when the line was posted
    double debit = 0, credit = 0;
    std::string narration;
    bool machineMade = false;  // posted by the stock screens
};

// What a list of lines is narrowed to; all that is set must be met.
struct VoucherFilter {
    Range days = {};
    std::optional<qm::VoucherType> type = {};
    std::optional<std::int32_t> ledger = {}, number = {};
    std::string group = {};                       // of whose ledgers, "" for all
    std::optional<double> least = {}, most = {};  // of the line's amount, whichever side
    std::string words = {};  // each stands somewhere in the narration, without regard to case
};

enum class VoucherOrder { Date, Number, Type, Ledger, Debit, Credit, Narration };

// The lines of the year that a filter leaves, by date (or by another field and date), a day's in the order in
// which they were posted; by window, so that a million of them are a list like any other.
using VoucherLines = Windowed<VoucherLine>;
VoucherLines Vouchers(Reading& books, const VoucherFilter& filter = {},
                      VoucherOrder order = VoucherOrder::Date, bool descending = false);

// Whether the first lines of such a list stand at once: an index has them in its order.
bool IsQuick(const VoucherFilter& filter, VoucherOrder order);

struct VoucherSums {
    std::size_t lines = 0;
    double debit = 0, credit = 0;
};
// The count and the totals of what the filter leaves, in one pass.
VoucherSums SumVouchers(Reading& books, const VoucherFilter& filter = {});

using VouchersSheet = PagedSheet<VoucherLine, VoucherLines>;
std::unique_ptr<VouchersSheet> ListVouchers(Reading& books, const VoucherFilter& filter = {},
                                            VoucherOrder order = VoucherOrder::Date, bool descending = false);

}  // namespace queries
