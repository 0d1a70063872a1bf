#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "queries/LedgerSums.h"
#include "queries/Reading.h"
#include "queries/Sheet.h"

namespace queries {

// A bill that a receipt of goods came with. Amounts are rupees.
struct BillRow {
    std::string bill;                            // its number, as typed
    std::int32_t receipt = 0, voucher = 0;       // under which it was booked
    std::optional<std::int32_t> order;           // that it was received against
    std::optional<basic::Date> date;             // of the voucher; none where that was deleted
    std::optional<std::int32_t> supplierLedger;  // that the voucher credits; none of a bill of 0
    std::string supplier, debited;               // names of the ledgers, as they were when it was posted
    double goods = 0;                            // what was received at its prices
    double discount = 0, tax = 0;                // per cent
    double charges = 0;
    double posted = 0;  // to the supplier, by the voucher: the screens cut a total at its first comma
    std::string narration;
};

struct BillFilter {
    Range days{};
    std::optional<std::int32_t> supplier{};
    std::string words{};  // each stands in the bill's number, a ledger's name or the narration
};

// The bills of the year, in the order in which they were booked.
std::vector<BillRow> Bills(Reading& books, const BillFilter& filter = {});
std::unique_ptr<SheetOf<BillRow>> BillsSheet(Reading& books, const BillFilter& filter = {});

}  // namespace queries
