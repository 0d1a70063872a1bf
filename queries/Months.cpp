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

using ByDay = std::map<std::int32_t, Sides>;

// What the vouchers of the type debit, as a field.
std::string DebitsOf(qm::VoucherType type) {
    const std::string word = qm::WordOf(type);
    return ", Sum(Iif(LedgerTrnType = '" + word + "', LedgerDrAmt, 0)) As " + word + "s";
}

// By day number: receipts as debits, payments as credits.
ByDay ReceiptsAndPayments(Reading& books, const Range& range) {
    ByDay sums;
    const auto rows = books.Select("Select LedgerTxnDate" + DebitsOf(qm::VoucherType::Receipt) +
                                   DebitsOf(qm::VoucherType::Payment) + " From " + books.Table("tb_Ledger") +
                                   WhereAll(DayConditions(range)) + " Group By LedgerTxnDate");
    for (; !rows->Eof(); rows->MoveNext())
        if (const basic::Value day = rows->Fields(std::size_t{0}).Value(); !day.IsNull())
            sums[basic::ToLong(day)] = {basic::NumberOrZero(rows->Fields(1).Value()),
                                        basic::NumberOrZero(rows->Fields(2).Value())};
    return sums;
}

Sides SumOf(const ByDay& sums, const Range& days) {
    Sides sum;
    const auto end = sums.upper_bound(DayOf(*days.upto));
    for (auto day = sums.lower_bound(DayOf(*days.from)); day != end; ++day) {
        sum.debit += day->second.debit;
        sum.credit += day->second.credit;
    }
    return sum;
}

double Paise(double amount) {
    return basic::Round(amount, 2);
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
                purchases = SumsByDay(books, PurchaseGroup, range), moved = ReceiptsAndPayments(books, range);
    std::vector<MonthRow> rows;
    for (const Range& month : MonthsOf(books, range)) {
        const Sides vouchers = SumOf(moved, month);
        rows.push_back({month, Paise(0 - SumOf(sales, month).Net()), Paise(SumOf(purchases, month).Net()),
                        Paise(vouchers.debit), Paise(vouchers.credit)});
    }
    return rows;
}

std::unique_ptr<SheetOf<MonthRow>> MonthsSheet(Reading& books, const Range& range) {
    return std::make_unique<SheetOf<MonthRow>>("Trade by month, " + TitleOf(books, range), Columns(),
                                               Months(books, range));
}

}  // namespace queries
