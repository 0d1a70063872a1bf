#include "queries/Months.h"

#include <algorithm>

#include "core/VoucherType.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "queries/Conditions.h"
#include "queries/GroupLedgers.h"

namespace queries {
namespace {

basic::Date LastOfMonth(basic::Date day) {
    const basic::YearMonthDay parts = basic::Parts(day);
    const bool december = parts.Month == 12;
    return basic::AddDays(basic::MakeDate(parts.Year + (december ? 1 : 0), december ? 1 : parts.Month + 1, 1),
                          -1);
}

// What the vouchers of a type debit, by day number.
using ByDay = std::map<std::int32_t, Sides>;
ByDay DebitsOf(Reading& books, qm::VoucherType type, const Range& range) {
    std::vector<std::string> conditions = DayConditions(range);
    conditions.push_back(std::string("LedgerTrnType = '") + qm::WordOf(type) + "'");
    ByDay debits;
    const auto rows =
        books.Select("Select LedgerTxnDate, Sum(LedgerDrAmt) As Dr From " + books.Table("tb_Ledger") +
                     WhereAll(conditions) + " Group By LedgerTxnDate");
    for (; !rows->Eof(); rows->MoveNext())
        if (const basic::Value day = (*rows)["LedgerTxnDate"]; !day.IsNull())
            debits[basic::ToLong(day)].debit = basic::NumberOrZero((*rows)["Dr"]);
    return debits;
}

double NetOf(const ByDay& sums, const Range& days) {
    double net = 0;
    for (auto day = sums.lower_bound(DayOf(*days.from)); day != sums.end() && day->first <= DayOf(*days.upto);
         ++day)
        net += day->second.Net();
    return basic::Round(net, 2);
}

const std::vector<Filled<MonthRow>>& Columns() {
    using Row = const MonthRow&;
    static const std::vector<Filled<MonthRow>> columns{
        {{"from", "From", Kind::Date}, [](Row row) { return ValueOf(row.days.from); }},
        {{"upto", "Up to", Kind::Date}, [](Row row) { return ValueOf(row.days.upto); }},
        {{"sales", "Sales", Kind::Amount, true}, [](Row row) -> basic::Value { return row.sales; }},
        {{"purchases", "Purchases", Kind::Amount, true},
         [](Row row) -> basic::Value { return row.purchases; }},
        {{"receipts", "Receipts", Kind::Amount, true}, [](Row row) -> basic::Value { return row.receipts; }},
        {{"payments", "Payments", Kind::Amount, true}, [](Row row) -> basic::Value { return row.payments; }},
    };
    return columns;
}

}  // namespace

std::vector<Range> MonthsOf(const Reading& books, const Range& range) {
    const basic::Date last = range.upto.value_or(books.LastDay());
    std::vector<Range> months;
    for (basic::Date from = range.from.value_or(books.FirstDay()); from <= last;
         from = basic::AddDays(*months.back().upto, 1))
        months.push_back({from, std::min(last, LastOfMonth(from))});
    return months;
}

std::vector<MonthRow> Months(Reading& books, const Range& range) {
    const Reading::Moment moment(books);
    const ByDay sales = SumsByDay(books, SalesGroup, range),
                purchases = SumsByDay(books, PurchaseGroup, range);
    const ByDay receipts = DebitsOf(books, qm::VoucherType::Receipt, range),
                payments = DebitsOf(books, qm::VoucherType::Payment, range);
    std::vector<MonthRow> rows;
    for (const Range& month : MonthsOf(books, range))
        rows.push_back({month, 0 - NetOf(sales, month), NetOf(purchases, month), NetOf(receipts, month),
                        NetOf(payments, month)});
    return rows;
}

std::unique_ptr<SheetOf<MonthRow>> MonthsSheet(Reading& books, const Range& range) {
    return std::make_unique<SheetOf<MonthRow>>("Trade by month, " + TitleOf(books, range), Columns(),
                                               Months(books, range));
}

}  // namespace queries
