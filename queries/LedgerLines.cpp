#include "queries/LedgerLines.h"

#include <algorithm>
#include <cmath>
#include <limits>
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

// Whether it may show in the paise in which order so many amounts are added, none of whose sums is larger: by
// the most that such a sum errs by.
bool OrderShows(std::size_t amounts, double largest) {
    constexpr double unseen = 0.002, perSum = std::numeric_limits<double>::epsilon() / 2;
    return static_cast<double>(amounts) * largest * perSum > unseen;
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
    if (range.from) AddEarlier(*range.from);
    std::vector<std::string> conditions = DayConditions(range);
    conditions.insert(conditions.begin(), "LedgerCode = " + std::to_string(ledger));
    ReadDays(WhereAll(conditions));
}

// As the report adds them up: each side by itself.
void LedgerLines::AddEarlier(basic::Date from) {
    const auto sums =
        books_->Select("Select Sum(LedgerDrAmt) As Dr, Sum(LedgerCrAmt) As Cr From " +
                       books_->Table("tb_Ledger") + " Where LedgerTxnDate < " + std::to_string(DayOf(from)) +
                       " And LedgerCode = " + std::to_string(ledger_));
    opening_ = opening_ + basic::NumberOrZero((*sums)["Dr"]) - basic::NumberOrZero((*sums)["Cr"]);
}

// What stands in the opening's line.
void LedgerLines::Begin() {
    const LedgerLine opening = OpeningLine();
    closing_ = opening.balance;
    sums_ = {opening.debit, opening.credit};
}

// One walk over the ledger's part of an index, which gives a line for each day.
void LedgerLines::ReadDays(const std::string& where) {
    const auto days = books_->Select(
        "Select LedgerTxnDate, Sum(1) As Lines, Sum(LedgerDrAmt) As Dr, Sum(LedgerCrAmt) As Cr, "
        "Sum(Iif(LedgerDrAmt <> 0, LedgerDrAmt, 0 - LedgerCrAmt)) As Net From " +
        books_->Table("tb_Ledger") + where + " Group By LedgerTxnDate Order By LedgerTxnDate");
    Begin();
    double largest = std::abs(opening_);
    for (; !days->Eof(); days->MoveNext()) {
        const basic::Value number = (*days)["LedgerTxnDate"];
        const auto lines = static_cast<std::size_t>(basic::NumberOrZero((*days)["Lines"]));
        days_.push_back(
            {!number.IsNull(), number.IsNull() ? 0 : basic::ToLong(number), count_, lines, closing_});
        count_ += lines;
        closing_ += basic::NumberOrZero((*days)["Net"]);
        sums_.debit += basic::NumberOrZero((*days)["Dr"]);
        sums_.credit += basic::NumberOrZero((*days)["Cr"]);
        for (const double sum : {closing_, sums_.debit, sums_.credit})
            largest = std::max(largest, std::abs(sum));
    }
    if (OrderShows(count_, largest)) AddInOrder(where);
}

// The sums again, line by line as the report adds them up.
void LedgerLines::AddInOrder(const std::string& where) {
    auto day = days_.begin();
    std::size_t at = 0;
    Begin();
    InOrder("LedgerDrAmt, LedgerCrAmt", where).Each([&](const ado::KeptRows& rows) {
        for (std::int64_t row = 0; row < rows.Count(); ++row, ++at) {
            const basic::Value debit = rows.ValueAt(row, 0), credit = rows.ValueAt(row, 1);
            if (day != days_.end() && at == day->first) (day++)->before = closing_;
            closing_ += Move(debit, credit);
            sums_.debit += basic::NumberOrZero(debit);
            sums_.credit += basic::NumberOrZero(credit);
        }
    });
}

ado::RowWindow LedgerLines::InOrder(const std::string& fields, const std::string& where) const {
    return books_->Window("Select " + fields + " From " + books_->Table("tb_Ledger") + where +
                          " Order By LedgerTxnDate, LedgerTrnType Desc");
}

ado::RowWindow LedgerLines::Between(const Day& first, const Day& last, const char* fields) const {
    const std::string day = first.dated ? "LedgerTxnDate >= " + std::to_string(first.number) +
                                              " And LedgerTxnDate <= " + std::to_string(last.number)
                                        : "LedgerTxnDate Is Null";
    return InOrder(fields, " Where LedgerCode = " + std::to_string(ledger_) + " And " + day);
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

std::size_t RowsOfLedger(Reading& books, std::int32_t ledger) {
    const auto rows = books.Select("Select Sum(1) As Lines From " + books.Table("tb_Ledger") +
                                   " Where LedgerCode = " + std::to_string(ledger));
    return static_cast<std::size_t>(basic::NumberOrZero((*rows)["Lines"]));
}

std::unique_ptr<LedgerSheet> ListLedger(Reading& books, std::int32_t ledger, const Range& range) {
    const Reading::Moment moment(books);
    return std::make_unique<LedgerSheet>(NameOf(books, ledger) + ", " + TitleOf(books, range), Columns(),
                                         LedgerLines(books, ledger, range));
}

}  // namespace queries
