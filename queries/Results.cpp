#include "queries/Results.h"

#include <algorithm>
#include <functional>

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "queries/LedgerDetails.h"
#include "queries/PrimaryGroups.h"

namespace queries {
namespace {

using Part = ResultRow::Part;
using Rows = std::vector<ResultRow>;
using BalanceOf = std::function<std::optional<double>(const LedgerDetails&)>;

// What a statement is drawn up from.
struct Chart {
    std::vector<PrimaryGroup> groups;
    std::vector<LedgerDetails> ledgers;
};

constexpr const char* LetterOf(Statement statement) {
    return statement == Statement::Trading ? "T" : statement == Statement::ProfitAndLoss ? "P" : "B";
}

// The digits with which a result goes into the next statement.
double HandedOn(double result) {
    return basic::PrefixValue(basic::NumberText(result));
}

// One statement while it is drawn up.
class Page {
  public:
    explicit Page(Statement statement) : statement_(statement) { Add(Part::Head, HeadOf(statement)); }

    void Groups(const Chart& chart, const BalanceOf& balanceOf) {
        for (const PrimaryGroup& group : chart.groups)
            if (basic::EqualText(group.statement, LetterOf(statement_))) Group(group.name, chart, balanceOf);
    }
    // Counts among the totals.
    void Line(Part part, const std::string& name, double debit, double credit, std::int32_t ledger = 0) {
        Add(part, name, debit, credit, ledger);
        totals_.debit += debit;
        totals_.credit += credit;
    }
    void Foot(const std::string& name, double debit, double credit) {
        if (!name.empty()) Add(Part::Result, name, debit, credit);
        Add(Part::Total, "Total", totals_.debit + debit, totals_.credit + credit);
    }
    const Sides& Totals() const { return totals_; }
    bool Empty() const { return rows_.size() == 1; }
    const Rows& Lines() const { return rows_; }

  private:
    void Add(Part part, const std::string& name, double debit = 0, double credit = 0,
             std::int32_t ledger = 0) {
        rows_.push_back({statement_, part, name, ledger, debit, credit});
    }
    void Group(const std::string& name, const Chart& chart, const BalanceOf& balanceOf) {
        const std::size_t head = rows_.size();
        Sides sums;
        for (const LedgerDetails& ledger : chart.ledgers) {
            if (!basic::EqualText(ledger.group, name)) continue;
            const double balance = balanceOf(ledger).value_or(0);
            if (balance == 0) continue;
            if (rows_.size() == head) Add(Part::Group, name);
            Line(Part::Ledger, ledger.name, std::max(balance, 0.0), std::max(-balance, 0.0), ledger.id);
            sums.debit += rows_.back().debit;
            sums.credit += rows_.back().credit;
        }
        if (rows_.size() == head) return;
        rows_[head].debit = sums.debit;
        rows_[head].credit = sums.credit;
    }

    Statement statement_;
    Rows rows_;
    Sides totals_;
};

// The foot of Trading or of Profit & Loss: an excess of debits is a loss, all else a profit, and nought, too.
// Gives the result, the profit positive.
double Balance(Page& page, const char* loss, const char* profit) {
    const double debits = page.Totals().debit, credits = page.Totals().credit;
    if (debits > credits)
        page.Foot(loss, 0, debits - credits);
    else
        page.Foot(profit, credits - debits, 0);
    return HandedOn(credits - debits);
}

void TakeOver(Page& page, double result, const char* loss, const char* profit) {
    const bool lost = result < 0;
    page.Line(Part::Result, lost ? loss : profit, lost ? -result : 0, lost ? 0 : result);
}

struct Year {
    Rows lines;  // of both statements; none where no ledger has a line there
    double net = 0;
};

Year TradeAndProfit(const Chart& chart, const BalanceOf& balanceOf) {
    Page trading(Statement::Trading), own(Statement::ProfitAndLoss), profit(Statement::ProfitAndLoss);
    trading.Groups(chart, balanceOf);
    own.Groups(chart, balanceOf);
    if (trading.Empty() && own.Empty()) return {};
    const double gross = Balance(trading, "Gross Loss", "Gross Profit");
    TakeOver(profit, gross, "Gross Loss B/F", "Gross Profit B/F");
    profit.Groups(chart, balanceOf);
    Year year{trading.Lines(), Balance(profit, "Net Loss", "Net Profit")};
    year.lines.insert(year.lines.end(), profit.Lines().begin(), profit.Lines().end());
    return year;
}

// What the sides differ by stands on the shorter one; less than a paisa is made up for without a line.
void BalanceSheetFoot(Page& page) {
    const double excess = page.Totals().debit - page.Totals().credit;
    const double debits = basic::Round(page.Totals().debit, 2),
                 credits = basic::Round(page.Totals().credit, 2);
    const char* const name = debits == credits ? "" : "Difference In Opening";
    page.Foot(name, std::max(-excess, 0.0), std::max(excess, 0.0));
}

Rows BalanceSheet(const Chart& chart, const BalanceOf& balanceOf, const Year& year) {
    Page page(Statement::BalanceSheet);
    page.Groups(chart, balanceOf);
    if (!year.lines.empty()) TakeOver(page, year.net, "Net Loss Trf From P & L", "Net Profit Trf From P & L");
    BalanceSheetFoot(page);
    return page.Lines();
}

// What `only` has no use for is not read.
Rows Draw(Reading& books, const Range& range, LedgerSums& sums, std::optional<Statement> only = {}) {
    const Reading::Moment moment(books);
    const Chart chart{PrimaryGroups(books), ReadDetails(books, LedgerOrder::AsDetailed)};
    const auto asOfUpto = [&](const LedgerDetails& ledger) {
        const Sides of = SidesOf(sums.Of({.from = {}, .upto = range.upto}), ledger.id);
        return ledger.ClosingBy(of.debit, of.credit);
    };
    const auto within = [&](const LedgerDetails& ledger) { return SidesOf(sums.Of(range), ledger.id).Net(); };
    const bool begins = BeginsTheYear(books, range);
    if (only && *only != Statement::BalanceSheet && !begins) return TradeAndProfit(chart, within).lines;
    const Year year = TradeAndProfit(chart, asOfUpto);
    Rows rows = begins || only ? year.lines : TradeAndProfit(chart, within).lines;
    const Rows sheet = BalanceSheet(chart, asOfUpto, year);
    rows.insert(rows.end(), sheet.begin(), sheet.end());
    return rows;
}

const std::vector<Filled<ResultRow>>& Columns() {
    using Row = const ResultRow&;
    static const std::vector<Filled<ResultRow>> columns{
        {{"particulars", "Particulars", Kind::Text}, [](Row row) -> basic::Value { return row.name; }},
        {{"debit", "Debit / Assets", Kind::Amount}, [](Row row) { return SideValue(row.debit); }},
        {{"credit", "Credit / Liabilities", Kind::Amount}, [](Row row) { return SideValue(row.credit); }},
    };
    return columns;
}

}  // namespace

const char* HeadOf(Statement statement) {
    return statement == Statement::Trading         ? "Trading Account"
           : statement == Statement::ProfitAndLoss ? "Profit & Loss Account"
                                                   : "Balance Sheet";
}

std::vector<ResultRow> Results(Reading& books, const Range& range) {
    const Reading::Moment moment(books);
    LedgerSums sums(books);
    if (!BeginsTheYear(books, range)) sums.Read({{.from = {}, .upto = range.upto}, range});
    return Draw(books, range, sums);
}

std::unique_ptr<SheetOf<ResultRow>> ResultsSheet(Reading& books, const Range& range) {
    return std::make_unique<SheetOf<ResultRow>>("Final results, " + TitleOf(books, range), Columns(),
                                                Results(books, range),
                                                [](const ResultRow& row) { return row.Level(); });
}

std::vector<ResultRow> StatementOf(Reading& books, Statement statement, const Range& range) {
    LedgerSums sums(books);
    return StatementOf(books, statement, range, sums);
}

std::vector<ResultRow> StatementOf(Reading& books, Statement statement, const Range& range,
                                   LedgerSums& sums) {
    Rows rows = Draw(books, range, sums, statement);
    std::erase_if(rows,
                  [&](const ResultRow& row) { return row.statement != statement || row.part == Part::Head; });
    return rows;
}

std::unique_ptr<SheetOf<ResultRow>> StatementSheet(Reading& books, Statement statement, const Range& range) {
    auto columns = Columns();
    const bool balance = statement == Statement::BalanceSheet;
    columns[1].column.caption = balance ? "Assets" : "Debit";
    columns[2].column.caption = balance ? "Liabilities" : "Credit";
    return std::make_unique<SheetOf<ResultRow>>(HeadOf(statement) + (", " + TitleOf(books, range)), columns,
                                                StatementOf(books, statement, range),
                                                [](const ResultRow& row) { return row.Level() - 1; });
}

}  // namespace queries
