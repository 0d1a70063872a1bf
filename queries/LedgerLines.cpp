#include "queries/LedgerLines.h"

#include <algorithm>
#include <utility>

#include "core/LedgerSide.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "queries/Conditions.h"

namespace queries {
namespace {

constexpr std::size_t Head = 1024;  // lines whose balances are added up from the opening on

std::string WhereOf(std::int32_t ledger, const Range& range) {
    std::vector<std::string> conditions = DayConditions(range);
    conditions.insert(conditions.begin(), "LedgerCode = " + std::to_string(ledger));
    return WhereAll(conditions);
}

std::string Ordered(const Reading& books, const std::string& fields, const std::string& where) {
    return "Select " + fields + " From " + books.Table("tb_Ledger") + where +
           " Order By LedgerTxnDate, LedgerTrnType Desc";
}

// What a line moves the balance by: a row with both amounts counts by its debit.
double Move(const basic::Value& debit, const basic::Value& credit) {
    const double debits = basic::NumberOrZero(debit);
    return debits != 0 ? debits : -basic::NumberOrZero(credit);
}

LedgerLine Line(const ado::KeptRows& rows, std::int64_t row, double balance) {
    LedgerLine line;
    line.key = rows.KeyOf(row);
    line.balance = balance;
    const basic::Value number = rows.ValueAt(row, 0), day = rows.ValueAt(row, 1);
    if (!number.IsNull()) line.number = basic::ToLong(number);
    if (!day.IsNull()) line.date = DateOf(basic::ToLong(day));
    line.type = basic::TextOrEmpty(rows.ValueAt(row, 2));
    line.narration = basic::TextOrEmpty(rows.ValueAt(row, 3));
    line.debit = basic::NumberOrZero(rows.ValueAt(row, 4));
    line.credit = basic::NumberOrZero(rows.ValueAt(row, 5));
    return line;
}

double OpeningOf(Reading& books, std::int32_t ledger) {
    const auto details = books.Select("Select Opening_Bal, Bal_Type From Ledger_Details Where Ledger_ID = " +
                                      std::to_string(ledger) + " And Fnncl_Yr = " + books.Year());
    if (details->Eof()) return 0;
    const auto side = qm::SideOfLetter(basic::TextOrEmpty((*details)["Bal_Type"]));
    return basic::NumberOrZero((*details)["Opening_Bal"]) * (side == qm::LedgerSide::Credit ? -1 : 1);
}

std::string NameOf(Reading& books, std::int32_t ledger) {
    const auto found =
        books.Select("Select Name From Ledger_Master Where Ledger_ID = " + std::to_string(ledger));
    return found->Eof() ? "" : basic::TextOrEmpty((*found)["Name"]);
}

const std::vector<Filled<LedgerLine>>& Columns() {
    using Row = const LedgerLine&;
    static const std::vector<Filled<LedgerLine>> columns{
        {{"date", "Date", Kind::Date}, [](Row line) { return ValueOf(line.date); }},
        {{"voucher", "Voucher", Kind::Number},
         [](Row line) { return line.key == 0 ? basic::Value() : basic::Value(line.number); }},
        {{"type", "Type", Kind::Text}, [](Row line) -> basic::Value { return line.type; }},
        {{"narration", "Particulars", Kind::Text}, [](Row line) -> basic::Value { return line.narration; }},
        {{"debit", "Debit", Kind::Amount, true}, [](Row line) { return SideValue(line.debit); }},
        {{"credit", "Credit", Kind::Amount, true}, [](Row line) { return SideValue(line.credit); }},
        {{"balance", "Balance", Kind::Amount}, [](Row line) -> basic::Value { return line.balance; }},
    };
    return columns;
}

}  // namespace

LedgerLines::LedgerLines(Reading& books, std::int32_t ledger, const Range& range)
    : lines_(books.Connection(),
             Ordered(books,
                     "LedgerTrnNo, LedgerTxnDate, LedgerTrnType, LedgerNarration, LedgerDrAmt, LedgerCrAmt",
                     WhereOf(ledger, range))),
      amounts_(books.Connection(), Ordered(books, "LedgerDrAmt, LedgerCrAmt", WhereOf(ledger, range))),
      day_(range.from.value_or(books.FirstDay())) {
    const Reading::Moment moment(books);
    opening_ = OpeningOf(books, ledger);
    if (range.from) {
        ReadSums(books, WhereOf(ledger, {.from = {}, .upto = basic::AddDays(*range.from, -1)}));
        opening_ += sums_.debit;
        opening_ -= sums_.credit;
    }
    ReadSums(books, WhereOf(ledger, range));
    count_ = 1 + lines_.Count();
}

void LedgerLines::ReadSums(Reading& books, const std::string& where) {
    const auto sums = books.Select(
        "Select Sum(LedgerDrAmt) As Dr, Sum(LedgerCrAmt) As Cr, Sum(Iif(LedgerDrAmt <> 0, LedgerDrAmt, 0 - "
        "LedgerCrAmt)) As Net From " +
        books.Table("tb_Ledger") + where);
    sums_ = {basic::NumberOrZero((*sums)["Dr"]), basic::NumberOrZero((*sums)["Cr"])};
    net_ = basic::NumberOrZero((*sums)["Net"]);
}

LedgerLine LedgerLines::OpeningLine() const {
    LedgerLine line;
    line.date = day_;
    line.narration = "Opening Balance";
    line.debit = std::max(opening_, 0.0);
    line.credit = std::max(-opening_, 0.0);
    line.balance = opening_;
    return line;
}

std::vector<LedgerLine> LedgerLines::Page(std::size_t first, std::size_t count) {
    std::vector<LedgerLine> page;
    const std::size_t end = std::min(first + count, count_);
    if (first >= end) return page;
    if (first == 0) page.push_back(OpeningLine());
    const std::size_t from = first == 0 ? 0 : first - 1, upto = end - 1;  // among the rows
    if (!balances_ && upto > Head) {
        if (awaits_) return page;
        Take(ReadBalances());
    }
    if (balances_) {
        const ado::KeptRows rows = lines_.Of(balances_->keys.data() + from, upto - from);
        for (std::int64_t row = 0; row < rows.Count(); ++row)
            page.push_back(Line(rows, row, balances_->behind[from + static_cast<std::size_t>(row)]));
        return page;
    }
    const ado::KeptRows rows = lines_.From(0, upto);
    double balance = opening_;
    for (std::int64_t row = 0; row < rows.Count(); ++row) {
        balance += Move(rows.ValueAt(row, 4), rows.ValueAt(row, 5));
        if (row >= static_cast<std::int64_t>(from)) page.push_back(Line(rows, row, balance));
    }
    return page;
}

std::optional<std::size_t> LedgerLines::PlaceOf(ado::RowKey key) {
    if (!balances_) {
        if (awaits_) return std::nullopt;
        Take(ReadBalances());
    }
    const auto place = std::find(balances_->keys.begin(), balances_->keys.end(), key);
    if (place == balances_->keys.end()) return std::nullopt;
    return static_cast<std::size_t>(place - balances_->keys.begin()) + 1;
}

LedgerLines::Balances LedgerLines::ReadBalances() const {
    const ado::KeptRows rows = amounts_.From(0, count_ - 1);
    Balances balances;
    double balance = opening_;
    for (std::int64_t row = 0; row < rows.Count(); ++row) {
        balance += Move(rows.ValueAt(row, 0), rows.ValueAt(row, 1));
        balances.keys.push_back(rows.KeyOf(row));
        balances.behind.push_back(balance);
    }
    return balances;
}

void LedgerLines::Take(Balances balances) {
    balances_ = std::move(balances);
    balances_->keys.resize(count_ - 1);  // as it was first counted, whatever others have removed since
    balances_->behind.resize(count_ - 1, balances_->behind.empty() ? opening_ : balances_->behind.back());
}

std::unique_ptr<LedgerSheet> ListLedger(Reading& books, std::int32_t ledger, const Range& range) {
    const Reading::Moment moment(books);
    return std::make_unique<LedgerSheet>(NameOf(books, ledger) + ", " + TitleOf(books, range), Columns(),
                                         LedgerLines(books, ledger, range));
}

}  // namespace queries
