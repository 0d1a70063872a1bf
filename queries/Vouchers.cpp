#include "queries/Vouchers.h"

#include "core/Quoting.h"
#include "platform/basic/Number.h"
#include "queries/Conditions.h"
#include "queries/GroupLedgers.h"

namespace queries {
namespace {

std::string WhereOf(Reading& books, const VoucherFilter& filter) {
    std::vector<std::string> conditions = DayConditions(filter.days);
    const auto add = [&](const std::string& condition) { conditions.push_back(condition); };
    if (filter.type) add(std::string("LedgerTrnType = '") + qm::WordOf(*filter.type) + "'");
    if (filter.ledger) add("LedgerCode = " + std::to_string(*filter.ledger));
    if (filter.number) add("LedgerTrnNo = " + std::to_string(*filter.number));
    if (!filter.group.empty()) add(OfGroup(books, filter.group));
    const auto amount = [&](const char* sign, double bound) {
        const std::string reach = sign + basic::NumberText(bound);
        add("(LedgerDrAmt " + reach + " And LedgerDrAmt <> 0 Or LedgerCrAmt " + reach +
            " And LedgerCrAmt <> 0)");
    };
    if (filter.least) amount(">= ", *filter.least);
    if (filter.most) amount("<= ", *filter.most);
    for (const std::string& condition : HoldsWords("LedgerNarration", filter.words)) add(condition);
    return WhereAll(conditions);
}

const char* FieldOf(VoucherOrder order) {
    switch (order) {
        case VoucherOrder::Date:
            break;
        case VoucherOrder::Number:
            return "LedgerTrnNo";
        case VoucherOrder::Type:
            return "LedgerTrnType";
        case VoucherOrder::Ledger:
            return "LedgerName";
        case VoucherOrder::Debit:
            return "LedgerDrAmt";
        case VoucherOrder::Credit:
            return "LedgerCrAmt";
        case VoucherOrder::Narration:
            return "LedgerNarration";
    }
    return "LedgerTxnDate";
}

std::string OrderBy(VoucherOrder order, bool descending) {
    return std::string(" Order By ") + FieldOf(order) + (descending ? " Desc" : "") +
           (order == VoucherOrder::Date ? "" : ", LedgerTxnDate");
}

VoucherLine Line(const ado::KeptRows& rows, std::int64_t row) {
    VoucherLine line;
    std::size_t field = 0;
    const auto next = [&] { return rows.ValueAt(row, field++); };
    const auto number = [](const basic::Value& value) { return value.IsNull() ? 0 : basic::ToLong(value); };
    line.key = rows.KeyOf(row);
    line.number = number(next());
    if (const basic::Value day = next(); !day.IsNull()) line.date = DateOf(basic::ToLong(day));
    line.type = basic::TextOrEmpty(next());
    line.ledger = number(next());
    line.name = basic::TextOrEmpty(next());
    line.debit = basic::NumberOrZero(next());
    line.credit = basic::NumberOrZero(next());
    line.narration = basic::TextOrEmpty(next());
    line.machineMade = line.key != 0 && basic::ToBoolean(next());
    return line;
}

const std::vector<Filled<VoucherLine>>& Columns() {
    using Row = const VoucherLine&;
    static const std::vector<Filled<VoucherLine>> columns{
        {{"date", "Date", Kind::Date}, [](Row line) { return ValueOf(line.date); }},
        {{"voucher", "Voucher", Kind::Number},
         [](Row line) { return line.key == 0 ? basic::Value() : basic::Value(line.number); }},
        {{"type", "Type", Kind::Text}, [](Row line) -> basic::Value { return line.type; }},
        {{"ledger", "Ledger", Kind::Text}, [](Row line) -> basic::Value { return line.name; }},
        {{"debit", "Debit", Kind::Amount, true}, [](Row line) { return SideValue(line.debit); }},
        {{"credit", "Credit", Kind::Amount, true}, [](Row line) { return SideValue(line.credit); }},
        {{"narration", "Narration", Kind::Text}, [](Row line) -> basic::Value { return line.narration; }},
    };
    return columns;
}

}  // namespace

VoucherLines Vouchers(Reading& books, const VoucherFilter& filter, VoucherOrder order, bool descending) {
    const std::string from = " From " + books.Table("tb_Ledger") + WhereOf(books, filter);
    std::optional<RowPages::ByField> byField;
    if (order != VoucherOrder::Date && order != VoucherOrder::Number)
        byField = {std::string("Select ") + FieldOf(order) + ", LedgerTxnDate" + from,
                   order != VoucherOrder::Debit && order != VoucherOrder::Credit, descending};
    return {books,
            "Select LedgerTrnNo, LedgerTxnDate, LedgerTrnType, LedgerCode, LedgerName, LedgerDrAmt, "
            "LedgerCrAmt, LedgerNarration, LedgerMcGenerated" +
                from + OrderBy(order, descending),
            Line, byField};
}

bool IsQuick(const VoucherFilter& filter, VoucherOrder order) {
    if (filter.number) return true;
    if (filter.type || !filter.group.empty() || filter.least || filter.most || !filter.words.empty())
        return false;
    const bool narrowed = filter.ledger || filter.days.from || filter.days.upto;
    return order == VoucherOrder::Date || (order == VoucherOrder::Number && !narrowed);
}

VoucherSums SumVouchers(Reading& books, const VoucherFilter& filter) {
    const auto sums =
        books.Select("Select Sum(1) As Lines, Sum(LedgerDrAmt) As Dr, Sum(LedgerCrAmt) As Cr From " +
                     books.Table("tb_Ledger") + WhereOf(books, filter));
    return {static_cast<std::size_t>(basic::NumberOrZero((*sums)["Lines"])),
            basic::NumberOrZero((*sums)["Dr"]), basic::NumberOrZero((*sums)["Cr"])};
}

std::unique_ptr<VouchersSheet> ListVouchers(Reading& books, const VoucherFilter& filter, VoucherOrder order,
                                            bool descending) {
    return std::make_unique<VouchersSheet>("Vouchers, " + TitleOf(books, filter.days), Columns(),
                                           Vouchers(books, filter, order, descending));
}

}  // namespace queries
