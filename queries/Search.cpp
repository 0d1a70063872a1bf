#include "queries/Search.h"

#include <algorithm>
#include <set>

#include "core/Masks.h"
#include "platform/ado/Errors.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "queries/Conditions.h"
#include "queries/Vouchers.h"

namespace queries {
namespace {

using Of = SearchHit::Kind;
using Hits = std::vector<SearchHit>;

// A select whose first three fields are the number, the text and the detail of a hit. A year may stand
// without the tables of stock.
Hits HitsOf(Reading& books, Of kind, const std::string& select) {
    Hits hits;
    try {
        for (const auto rows = books.Select(select); !rows->Eof(); rows->MoveNext()) {
            const basic::Value number = rows->Fields(std::size_t{0}).Value();
            hits.push_back({kind, number.IsNull() ? 0 : basic::ToLong(number),
                            basic::TextOrEmpty(rows->Fields(1).Value()),
                            basic::TextOrEmpty(rows->Fields(2).Value())});
        }
    } catch (const basic::Error& error) {
        if (error.Number != ado::error::NoSuchTable) throw;
    }
    return hits;
}

void Add(Hits& hits, Hits found, const std::string& text, std::size_t most) {
    const std::string head = basic::FoldCase(text);
    std::stable_partition(found.begin(), found.end(),
                          [&](const SearchHit& hit) { return basic::FoldCase(hit.text).starts_with(head); });
    found.resize(std::min(found.size(), most));
    hits.insert(hits.end(), found.begin(), found.end());
}

std::string DetailOf(const VoucherLine& line) {
    return (line.date ? basic::Format(*line.date, qm::DateMask) + ", " : "") + line.type;
}

// Each voucher once, though all of its lines bear the narration.
void AddVouchers(Reading& books, Hits& hits, Of kind, const VoucherFilter& filter, std::size_t most) {
    constexpr std::size_t lines = 8;  // looked at for each voucher
    std::set<std::int32_t> met;
    const auto page = Vouchers(books, filter, VoucherOrder::Date, true).Page(0, most * lines);
    for (const VoucherLine& line : page) {
        if (met.size() == most) return;
        if (!met.insert(line.number).second) continue;
        const std::string text =
            kind == Of::Voucher ? "Voucher " + std::to_string(line.number) : line.narration;
        hits.push_back({kind, line.number, text, DetailOf(line)});
    }
}

// The screen of orders shows none that was cancelled.
void AddOrder(Reading& books, Hits& hits, std::int32_t number) {
    for (SearchHit& hit : HitsOf(books, Of::Order,
                                 "Select poNumber, poNumber, poSupplierName From " + books.Table("tblPO") +
                                     " Where poNumber = " + std::to_string(number) + " And Not poCancelled"))
        hits.push_back({hit.kind, hit.number, "Order " + hit.text, hit.detail});
}

std::optional<std::int32_t> NumberIn(const std::string& text) {
    const bool digits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!digits || text.size() > 9) return std::nullopt;
    return basic::ToLong(basic::Value(text));
}

}  // namespace

std::vector<SearchHit> Search(Reading& books, const std::string& text, std::size_t most) {
    const std::string typed = basic::Trim(text);
    Hits hits;
    if (typed.empty()) return hits;
    const Reading::Moment moment(books);
    const auto number = NumberIn(typed);
    if (number) AddVouchers(books, hits, Of::Voucher, {.number = number}, most);
    const auto where = [&](const char* field) { return WhereAll(HoldsWords(field, typed)); };
    Add(hits,
        HitsOf(books, Of::Ledger,
               "Select Ledger_ID, Name, PrimaryGrp From Ledger_Master" + where("Name") + " Order By Name"),
        typed, most);
    Add(hits,
        HitsOf(books, Of::Item,
               "Select Item_ID, Item_Name, Item_Type From " + books.Table("ItemMaster") + where("Item_Name") +
                   " Order By Item_Name"),
        typed, most);
    const std::string bills = " From " + books.Table("tblBills") + where("BillID");
    Add(hits,
        HitsOf(books, Of::Bill,
               "Select BillTxnID, BillID, BillVchrNo" + bills + " And Not ISPoBill Order By BillID"),
        typed, most);
    Add(hits,
        HitsOf(books, Of::OrderBill,
               "Select InstrumentID, BillID, BillVchrNo" + bills + " And ISPoBill Order By BillID"),
        typed, most);
    if (number) AddOrder(books, hits, *number);
    AddVouchers(books, hits, Of::Narration, {.words = typed}, most);
    return hits;
}

}  // namespace queries
