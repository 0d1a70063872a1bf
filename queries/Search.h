#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "queries/Reading.h"

namespace queries {

// Something that bears what was typed.
struct SearchHit {
    // A bill that was received against an order stands apart: it belongs to that order's receipts.
    enum class Kind { Voucher, Ledger, Item, Bill, OrderBill, Order, Narration };

    Kind kind = Kind::Voucher;
    std::int32_t number =
        0;               // of the voucher, ledger, item, order; a bill's is its receipt's, or its order's
    std::string text;    // "Model School Stores", "Voucher 14", the narration
    std::string detail;  // "Debtors", "16-Apr-2001, Receipt"
};

// What a search field offers for a text, at most so many of each kind, in the order of the kinds: the voucher
// the bills and the order of that number; ledgers and items whose names hold all of the words, those that
// begin with the text first; vouchers whose narrations hold them, the latest first. Nothing for a text of
// blanks.
std::vector<SearchHit> Search(Reading& books, const std::string& text, std::size_t most = 8);

}  // namespace queries
