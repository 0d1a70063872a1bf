#include "queries/CashAndBank.h"

#include <set>

#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "queries/GroupLedgers.h"
#include "queries/Months.h"

namespace queries {
namespace {

// One of the two kinds of money while the periods go by.
class Money {
  public:
    Money(Reading& books, const char* group, const Range& range)
        : moved_(SumsByDay(books, group, {.from = {}, .upto = range.upto})),
          next_(moved_.begin()),
          balance_(OpeningOf(books, group)) {
        Upto(basic::AddDays(range.from.value_or(books.FirstDay()), -1));
    }
    // What moved since the last call.
    Sides Upto(basic::Date day) {
        Sides sides;
        for (; next_ != moved_.end() && next_->first <= DayOf(day); ++next_) {
            sides.debit += next_->second.debit;
            sides.credit += next_->second.credit;
        }
        balance_ += sides.Net();
        return sides;
    }
    double Balance() const { return basic::Round(balance_, 2); }
    void AddDays(std::set<std::int32_t>& days) const {
        for (auto day = next_; day != moved_.end(); ++day) days.insert(day->first);
    }

  private:
    std::map<std::int32_t, Sides> moved_;
    std::map<std::int32_t, Sides>::const_iterator next_;
    double balance_;
};

std::vector<Range> DaysOf(const Money& cash, const Money& bank) {
    std::set<std::int32_t> days;
    cash.AddDays(days);
    bank.AddDays(days);
    std::vector<Range> ranges;
    for (const std::int32_t day : days) ranges.push_back({DateOf(day), DateOf(day)});
    return ranges;
}

const std::vector<Filled<MoneyRow>>& Columns() {
    using Row = const MoneyRow&;
    static const std::vector<Filled<MoneyRow>> columns{
        {{"from", "From", Kind::Date}, [](Row row) { return ValueOf(row.days.from); }},
        {{"upto", "Up to", Kind::Date}, [](Row row) { return ValueOf(row.days.upto); }},
        {{"cash_in", "Cash In", Kind::Amount, true}, [](Row row) { return SideValue(row.cash.debit); }},
        {{"cash_out", "Cash Out", Kind::Amount, true}, [](Row row) { return SideValue(row.cash.credit); }},
        {{"cash", "Cash", Kind::Amount}, [](Row row) -> basic::Value { return row.cashBalance; }},
        {{"bank_in", "Bank In", Kind::Amount, true}, [](Row row) { return SideValue(row.bank.debit); }},
        {{"bank_out", "Bank Out", Kind::Amount, true}, [](Row row) { return SideValue(row.bank.credit); }},
        {{"bank", "Bank", Kind::Amount}, [](Row row) -> basic::Value { return row.bankBalance; }},
    };
    return columns;
}

}  // namespace

std::vector<MoneyRow> CashAndBank(Reading& books, Every every, const Range& range) {
    const Reading::Moment moment(books);
    Money cash(books, CashGroup, range), bank(books, BankGroup, range);
    std::vector<MoneyRow> rows;
    for (const Range& days : every == Every::Day ? DaysOf(cash, bank) : MonthsOf(books, range)) {
        MoneyRow row{days, cash.Upto(*days.upto), bank.Upto(*days.upto)};
        row.cashBalance = cash.Balance();
        row.bankBalance = bank.Balance();
        rows.push_back(row);
    }
    return rows;
}

std::unique_ptr<SheetOf<MoneyRow>> CashAndBankSheet(Reading& books, Every every, const Range& range) {
    return std::make_unique<SheetOf<MoneyRow>>("Cash and bank, " + TitleOf(books, range), Columns(),
                                               CashAndBank(books, every, range));
}

}  // namespace queries
