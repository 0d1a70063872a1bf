#include "queries/Beside.h"

#include <list>
#include <map>
#include <utility>

#include "core/Masks.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "queries/GroupTree.h"
#include "queries/Months.h"

namespace queries {
namespace {

using Chosen = std::optional<Statement>;

struct Line {
    BesideRow row;  // without figures
    double figure = 0;
    bool isResult = false;
};

// The result that ends a statement is what makes its sides agree: it has the sign of none of its lines.
double FigureOf(const ResultRow& row, bool endsIt) {
    const double debit = row.debit - row.credit;
    return row.statement == Statement::BalanceSheet || endsIt ? debit : -debit;
}

std::vector<Line> LinesOf(const std::vector<TreeRow>& rows) {
    std::vector<Line> lines;
    for (const TreeRow& row : rows)
        lines.push_back({{row.level, row.ledger, row.name, {}}, row.closing.value_or(0)});
    return lines;
}

std::vector<Line> LinesOf(const std::vector<ResultRow>& rows) {
    std::vector<Line> lines;
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const ResultRow& row = rows[place];
        if (row.part == ResultRow::Part::Total) continue;
        const bool isResult = row.part == ResultRow::Part::Result;
        const bool endsIt =
            isResult && place + 1 < rows.size() && rows[place + 1].part == ResultRow::Part::Total;
        lines.push_back({{row.Level() - 1, row.ledger, row.name, {}}, FigureOf(row, endsIt), isResult});
    }
    return lines;
}

// By the rows, with sums that were read before.
std::vector<Line> LinesOf(Reading& books, Chosen statement, const Range& days, LedgerSums& sums) {
    return statement ? LinesOf(StatementOf(books, *statement, days, sums))
                     : LinesOf(TrialTree(books, days, sums));
}

std::vector<Line> LinesOf(Reading& books, Chosen statement, const Range& days, TrialBy by) {
    return statement ? LinesOf(StatementOf(books, *statement, days)) : LinesOf(TrialTree(books, days, by));
}

std::string Swapped(std::string name, const std::string& word, const std::string& by) {
    if (const auto at = name.find(word); at != name.npos) name.replace(at, word.size(), by);
    return name;
}

// The lines of all columns in one order. A line that an earlier column has not goes behind the one that it
// follows in its own.
class Merged {
  public:
    explicit Merged(std::size_t columns) : columns_(columns) {}

    void Add(const std::vector<Line>& lines, std::size_t column) {
        std::map<std::string, int> met;  // a ledger whose figures stand twice has two lines
        std::string head;
        auto behind = rows_.begin();
        for (const Line& line : lines) {
            const std::string own = line.isResult ? Swapped(line.row.name, "Loss", "Profit") : line.row.name;
            if (line.row.level == 0) head = own;
            std::string key = head + '\n' + std::to_string(line.row.ledger) + (line.isResult ? "r" : "");
            key += '\n' + std::to_string(++met[key]);
            const auto found = places_.find(key);
            auto at = found == places_.end() ? Insert(line, behind) : found->second;
            if (found == places_.end()) places_.emplace(key, at);
            if (at->name != line.row.name) at->name = Swapped(own, "Profit", "Profit or Loss");
            at->figures[column] = line.figure;
            behind = std::next(at);
        }
    }
    std::vector<BesideRow> Rows() const { return {rows_.begin(), rows_.end()}; }

  private:
    using Place = std::list<BesideRow>::iterator;

    Place Insert(const Line& line, Place before) {
        while (line.row.level == 0 && before != rows_.end() && before->level > 0) ++before;
        BesideRow row = line.row;
        row.figures.resize(columns_);
        return rows_.insert(before, std::move(row));
    }

    std::size_t columns_;
    std::list<BesideRow> rows_;
    std::map<std::string, Place> places_;
};

std::string TitleFor(Chosen statement, const Reading& books, const Range& days) {
    return (statement ? HeadOf(*statement) : "Trial balance") + (", " + TitleOf(books, days));
}

// What the columns are worked out of.
std::vector<Range> SummedFor(const Reading& books, std::vector<Range> asked) {
    for (Range& range : asked)
        if (BeginsTheYear(books, range)) range.from.reset();
    return asked;
}

Column Figures(std::string name, std::string caption, bool totalled = false) {
    return {std::move(name), std::move(caption), Kind::Amount, totalled};
}

}  // namespace

BesideSheet::BesideSheet(std::string title, std::vector<Column> figures, std::vector<BesideRow> rows)
    : title_(std::move(title)), columns_(std::move(figures)), rows_(std::move(rows)) {
    columns_.insert(columns_.begin(), {"particulars", "Particulars", Kind::Text});
}

basic::Value BesideSheet::At(std::size_t row, std::size_t column) const {
    const BesideRow& line = rows_.at(row);
    return column == 0 ? basic::Value(line.name) : ValueOf(line.figures.at(column - 1));
}

std::optional<std::string> LastYearOf(Reading& books) {
    const std::string before = std::to_string(basic::Parts(books.FirstDay()).Year - 1);
    for (const std::string& year : books.Years())
        if (year == before) return year;
    return std::nullopt;
}

Range YearBefore(const Reading& books, const Range& days) {
    const auto shifted = [](basic::Date day) {
        const auto [year, month, number] = basic::Parts(day);
        const bool endsMonth = basic::Parts(basic::AddDays(day, 1)).Day == 1;
        if (!endsMonth) return basic::MakeDate(year - 1, month, number);
        return basic::AddDays(basic::MakeDate(month == 12 ? year : year - 1, month % 12 + 1, 1), -1);
    };
    return {shifted(days.from.value_or(books.FirstDay())), shifted(days.upto.value_or(books.LastDay()))};
}

std::unique_ptr<BesideSheet> BesideLastYear(Reading& books, std::optional<Statement> statement,
                                            const Range& days, TrialBy by, const Step& step) {
    const Reading::Moment moment(books);
    step(0, 2);
    Merged merged(3);
    merged.Add(LinesOf(books, statement, days, by), 0);
    step(1, 2);
    Reading before(books, LastYearOf(books).value_or("0"));
    merged.Add(LinesOf(before, statement, YearBefore(books, days), by), 1);
    std::vector<BesideRow> rows = merged.Rows();
    for (BesideRow& row : rows)
        row.figures[2] = basic::Round(row.figures[0].value_or(0) - row.figures[1].value_or(0), 2);
    return std::make_unique<BesideSheet>(
        TitleFor(statement, books, days),
        std::vector{Figures("this_year", books.LongYear()), Figures("last_year", before.LongYear()),
                    Figures("change", "Change")},
        std::move(rows));
}

std::unique_ptr<BesideSheet> ByMonth(Reading& books, std::optional<Statement> statement, const Range& days,
                                     const Step& step) {
    const Reading::Moment moment(books);
    const bool adds = statement && *statement != Statement::BalanceSheet;
    std::vector<Range> asked;
    std::vector<Column> columns;
    for (const Range& month : MonthsOf(books, days)) {
        asked.push_back(adds ? month : Range{.from = {}, .upto = month.upto});
        const std::string name = basic::Format(*month.upto, qm::DateMask).substr(3);
        columns.push_back(Figures(name, name));
    }
    if (adds) {
        asked.push_back(days);
        columns.push_back(Figures("total", "Total"));
    }
    LedgerSums sums(books);
    sums.Read(SummedFor(books, asked));
    Merged merged(asked.size());
    for (std::size_t column = 0; column < asked.size(); ++column) {
        step(column, asked.size());
        merged.Add(LinesOf(books, statement, asked[column], sums), column);
    }
    return std::make_unique<BesideSheet>(TitleFor(statement, books, days), std::move(columns), merged.Rows());
}

}  // namespace queries
