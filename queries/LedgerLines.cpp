#include "queries/LedgerLines.h"

#include <algorithm>
#include <utility>

#include "core/LedgerSide.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "queries/Conditions.h"

namespace queries {
namespace {

constexpr std::size_t Long = 512;  // rows of one day

constexpr const char* LineFields =
    "LedgerTrnNo, LedgerTxnDate, LedgerTrnType, LedgerNarration, LedgerDrAmt, LedgerCrAmt";

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
    : books_(&books), ledger_(ledger), opens_(range.from.value_or(books.FirstDay())) {
    const Reading::Moment moment(books);
    opening_ = OpeningOf(books, ledger);
    ReadDays(range);
}

// One walk over the ledger's part of an index, which gives a line for each day.
void LedgerLines::ReadDays(const Range& range) {
    std::vector<std::string> conditions = DayConditions({.from = {}, .upto = range.upto});
    conditions.insert(conditions.begin(), "LedgerCode = " + std::to_string(ledger_));
    const auto days = books_->Select(
        "Select LedgerTxnDate, Sum(1) As Lines, Sum(LedgerDrAmt) As Dr, Sum(LedgerCrAmt) As Cr, "
        "Sum(Iif(LedgerDrAmt <> 0, LedgerDrAmt, 0 - LedgerCrAmt)) As Net From " +
        books_->Table("tb_Ledger") + WhereAll(conditions) + " Group By LedgerTxnDate Order By LedgerTxnDate");
    for (; !days->Eof(); days->MoveNext()) {
        const basic::Value number = (*days)["LedgerTxnDate"];
        const double debit = basic::NumberOrZero((*days)["Dr"]), credit = basic::NumberOrZero((*days)["Cr"]);
        if (range.from && number.IsNull()) continue;
        if (range.from && basic::ToLong(number) < DayOf(*range.from)) {
            opening_ += debit;
            opening_ -= credit;
            continue;
        }
        const auto lines = static_cast<std::size_t>(basic::NumberOrZero((*days)["Lines"]));
        days_.push_back(
            {!number.IsNull(), number.IsNull() ? 0 : basic::ToLong(number), count_, lines, Closing()});
        count_ += lines;
        net_ += basic::NumberOrZero((*days)["Net"]);
        sums_.debit += debit;
        sums_.credit += credit;
    }
}

ado::RowWindow LedgerLines::Between(const Day& first, const Day& last, const char* fields) const {
    const std::string day = first.dated ? "LedgerTxnDate >= " + std::to_string(first.number) +
                                              " And LedgerTxnDate <= " + std::to_string(last.number)
                                        : "LedgerTxnDate Is Null";
    return books_->Window(std::string("Select ") + fields + " From " + books_->Table("tb_Ledger") +
                          " Where LedgerCode = " + std::to_string(ledger_) + " And " + day +
                          " Order By LedgerTxnDate, LedgerTrnType Desc");
}

LedgerLine LedgerLines::OpeningLine() const {
    LedgerLine line;
    line.date = opens_;
    line.narration = "Opening Balance";
    line.debit = std::max(opening_, 0.0);
    line.credit = std::max(-opening_, 0.0);
    line.balance = opening_;
    return line;
}

Sides LedgerLines::Sums() const {
    const LedgerLine opening = OpeningLine();
    return {sums_.debit + opening.debit, sums_.credit + opening.credit};
}

// Of days that follow each other in one read, but for those without a date and those that are long.
std::vector<LedgerLine> LedgerLines::Page(std::size_t first, std::size_t count) {
    std::vector<LedgerLine> page;
    const std::size_t end = std::min(first + count, Count());
    if (first >= end) return page;
    if (first == 0) page.push_back(OpeningLine());
    std::size_t from = first == 0 ? 0 : first - 1;  // among the rows
    const std::size_t upto = end - 1;
    while (from < upto) {
        const auto day = std::prev(std::upper_bound(
            days_.cbegin(), days_.cend(), from, [](std::size_t at, const Day& of) { return at < of.first; }));
        auto behind = std::next(day);
        const auto joins = [&] {
            return day->dated && behind != days_.end() && behind->first < upto && behind->count <= Long;
        };
        if (day->count > Long) {
            AddLong(page, day, from, std::min(upto, day->first + day->count));
        } else {
            while (joins()) ++behind;
            AddRows(page, day, behind, from, upto);
        }
        from = std::prev(behind)->first + std::prev(behind)->count;
    }
    return page;
}

void LedgerLines::AddRows(std::vector<LedgerLine>& page, Days::const_iterator day,
                          Days::const_iterator behind, std::size_t from, std::size_t upto) const {
    const ado::KeptRows rows = Between(*day, *std::prev(behind), LineFields).From(0, upto - day->first);
    double balance = day->before;
    for (std::int64_t row = 0; row < rows.Count(); ++row) {
        balance += Move(rows.ValueAt(row, 4), rows.ValueAt(row, 5));
        if (day->first + static_cast<std::size_t>(row) >= from) page.push_back(Line(rows, row, balance));
    }
}

void LedgerLines::AddLong(std::vector<LedgerLine>& page, Days::const_iterator day, std::size_t from,
                          std::size_t upto) {
    if (!long_ || long_->of != day) {
        long_ = LongDay{day, {}, {}};
        const ado::KeptRows rows = Between(*day, *day, "LedgerDrAmt, LedgerCrAmt").From(0, day->count);
        double balance = day->before;
        for (std::int64_t row = 0; row < rows.Count(); ++row) {
            long_->keys.Add(rows.KeyOf(row));
            long_->behind.push_back(balance += Move(rows.ValueAt(row, 0), rows.ValueAt(row, 1)));
        }
        long_->keys.Resize(day->count);  // as it was first counted, whatever others have removed since
        long_->behind.resize(day->count, balance);
    }
    const std::size_t first = from - day->first;
    const ado::KeptRows rows = Between(*day, *day, LineFields).Of(long_->keys.Part(first, upto - from));
    for (std::int64_t row = 0; row < rows.Count(); ++row)
        page.push_back(Line(rows, row, long_->behind[first + static_cast<std::size_t>(row)]));
}

std::optional<std::size_t> LedgerLines::PlaceOf(ado::RowKey key) {
    if (days_.empty()) return std::nullopt;
    const basic::Value stored =
        Between(days_.front(), days_.front(), "LedgerTxnDate").Of({key}).ValueAt(0, 0);
    const auto day = std::find_if(days_.cbegin(), days_.cend(), [&](const Day& of) {
        return of.dated ? !stored.IsNull() && basic::ToLong(stored) == of.number : stored.IsNull();
    });
    if (day == days_.cend()) return std::nullopt;
    const auto place = Between(*day, *day, "LedgerTxnDate").Keys().PlaceOf(key);
    return place ? std::optional(day->first + *place + 1) : std::nullopt;
}

std::unique_ptr<LedgerSheet> ListLedger(Reading& books, std::int32_t ledger, const Range& range) {
    const Reading::Moment moment(books);
    return std::make_unique<LedgerSheet>(NameOf(books, ledger) + ", " + TitleOf(books, range), Columns(),
                                         LedgerLines(books, ledger, range));
}

}  // namespace queries
