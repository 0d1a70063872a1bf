// What the queries answer beside what the reports print: cell by cell, on the sample firm and on random
// books.
#include <random>
#include <regex>

#include <gmock/gmock.h>

#include "core/LedgerSide.h"
#include "core/Masks.h"
#include "host/commands/Sample.h"
#include "platform/basic/Format.h"
#include "platform/basic/Text.h"
#include "queries/LedgerLines.h"
#include "queries/Ledgers.h"
#include "queries/Results.h"
#include "queries/TrialBalance.h"
#include "reports/frmPartyLedger.h"
#include "reports/frmTPL.h"
#include "tests/reports/PageCells.h"
#include "tests/reports/ReportScreens.h"

using namespace testing;
using test::CellsOf;
using test::Lines;

namespace {

std::string Money(double amount) {
    return basic::Format(amount, qm::ReportMask);
}
std::string Money(const std::optional<double>& amount) {
    return amount ? Money(*amount) : "";
}

class QueriesAgreeTest : public ReportScreensTest, public WithParamInterface<unsigned> {
  protected:
    ~QueriesAgreeTest() override {
        party.Unload();
        results.Unload();
    }

    enum Books : unsigned { Sample = 0, Empty = 4, Edges = 5 };

    // The sample firm, a year without a ledger, or books of a seed: ledgers in every group, on both sides,
    // some without rows, without totals or without a side; one whose figures stand twice; days before and
    // behind the year. On the edges: ledgers without a group, figures that are huge, negative or below a
    // paisa, all on the first and the last day.
    void Fill(unsigned seed) {
        if (seed == Empty) return;
        if (seed == Sample) {
            books.CloseHost();
            host::FillWithSample(books.DataPath(), 2001);
            books.OpenHost();
            return;
        }
        std::mt19937 random(seed);
        const auto below = [&](int count) {
            return static_cast<int>(random() % static_cast<unsigned>(count));
        };
        constexpr double hard[] = {0, 0.0003, -250.75, 1e12, 99999999999.99, 0.1, -0.01, 1e15};
        const auto figure = [&](int most) { return seed == Edges ? hard[below(8)] : below(most) / 100.0; };
        const auto day = [&] {
            return seed == Edges ? Day(below(2) == 0 ? 1 : 365) : std::to_string(36970 + below(385));
        };
        std::vector<int> ledgers;
        const Lines groups = Rows("Select Group_Head_Name From Group_Head_Master Where Parent_Id = 0");
        qm::Conn().BeginTrans();
        for (int i = 0; i < 40; ++i)
            ledgers.push_back(books.AddLedger("Ledger " + std::to_string(below(1000)),
                                              groups[static_cast<std::size_t>(below(16))],
                                              below(4) * figure(1000000), below(2) == 0 ? "D" : "C"));
        Run("Update Ledger_Details Set Bal_Type = 'x', Closing_Bal = -12.5 Where Ledger_ID = " +
            std::to_string(ledgers[7]));
        Run("Insert Into Ledger_Details Select Ledger_ID, Fnncl_Yr, 7.5 As Opening_Bal, Bal_Type From "
            "Ledger_Details Where Ledger_ID = " +
            std::to_string(ledgers[8]));
        if (seed == Edges)
            Run("Update Ledger_Master Set PrimaryGrp = Null Where Ledger_ID In (" +
                std::to_string(ledgers[3]) + ", " + std::to_string(ledgers[4]) + ")");
        for (int row = 0; row < 400; ++row) {
            const bool debit = below(2) == 0;
            const std::string amount = basic::NumberText(figure(5000000));
            Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerTxnDate, LedgerTrnType, "
                "LedgerNarration, "
                "LedgerDrAmt, LedgerCrAmt) Values (" +
                std::to_string(row / 2) + ", " +
                std::to_string(ledgers[static_cast<std::size_t>(below(35))]) + ", " + day() + ", '" +
                (below(2) == 0 ? "Journal" : "Payment") + "', 'row " + std::to_string(row) + "', " +
                (debit ? amount + ", 0)" : "0, " + amount + ")"));
        }
        qm::Conn().CommitTrans();
    }

    std::string TrialPage(basic::Date upto) {
        party.Show();
        BringToFront(party);
        party.ui().dtpDateUpTo->SetValue(upto);
        return Printed([&] {
            party.ui().ucPartyLedger->ui().optAll->Click.Fire();
            Click(party.ui().ucPartyLedger->ui().cmdOk);
        });
    }
    std::string StatementsPage(basic::Date from, basic::Date upto) {
        party.Unload();
        party.Show();
        BringToFront(party);
        Click(party.ui().optDetail);
        party.ui().dtpDateFrom->SetValue(from);
        party.ui().dtpDateUpTo->SetValue(upto);
        Click(party.ui().ucPartyLedger->ui().optAll);
        return Printed([&] { Click(party.ui().ucPartyLedger->ui().cmdOk); });
    }
    std::string ResultsPage(basic::Date upto) {
        results.Show();
        results.ui().dtpDate->SetValue(upto);
        results.ui().cmdView->Click.Fire();
        const std::string page = results.ui().ucHTMLBox->ui().dhtEdit->DocumentHTML();
        results.Unload();
        return page;
    }

    qm::frmPartyLedger& party = forms::Default<qm::frmPartyLedger>();
    qm::frmTPL& results = forms::Default<qm::frmTPL>();
};

// As one text: a failure shows the lines that differ.
std::string Text(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

// The opening of a ledger without a side stands without its sign.
Lines TrialLines(queries::Reading& reading, const queries::Range& range) {
    Lines lines;
    if (queries::Ledgers(reading).empty()) return lines;
    double sums[4] = {};
    for (const queries::TrialRow& row : queries::TrialBalance(reading, range)) {
        const double closing = row.closing.value_or(0), magnitude = closing > 0 ? closing : 0 - closing;
        const std::string shown = row.closing ? Money(magnitude) : "";
        lines.push_back("|" + row.name + "|" + basic::NumberText(std::abs(row.opening)) + "|" +
                        Money(row.debit) + "|" + Money(row.credit) + (closing > 0 ? "|" : "||") + shown);
        sums[0] += row.debit.value_or(0), sums[1] += row.credit.value_or(0);
        sums[closing > 0 ? 2 : 3] += magnitude;
    }
    lines.push_back("||" + ("|" + Money(sums[0])) + "|" + Money(sums[1]) + "|" + Money(sums[2]) + "|" +
                    Money(sums[3]));
    return lines;
}

// Opening cells bear the letter of their side, and the sign that was entered.
Lines WithoutLetters(Lines lines) {
    static const std::regex letter("^(\\|[^|]*\\|)-?([0-9.E+-]*)[CDx]\\|");
    for (std::string& line : lines) line = std::regex_replace(line, letter, "$1$2|");
    return lines;
}

std::string Sided(double balance, const char* debit = "Dr") {
    return Money(balance > 0 ? balance : 0 - balance) + (balance > 0 ? debit : "Cr");
}

Lines StatementLines(queries::Reading& reading, const queries::Range& range) {
    Lines lines;
    for (const queries::LedgerRow& ledger : queries::Ledgers(reading)) {
        queries::LedgerLines statement(reading, ledger.id, range);
        const auto rows = statement.Page(0, statement.Count());
        if (rows.size() == 1) continue;
        lines.push_back("|Date|Particulars|TrnType|Dr. Amount|Cr. Amount|Balance");
        const std::string opening = Money(rows[0].debit + rows[0].credit);
        const bool isDebit = rows[0].balance > 0;
        lines.push_back("|" + basic::Format(*rows[0].date, qm::DateMask) + "|Opening Balance|" +
                        (isDebit ? "|" + opening + "||" : "||" + opening + "|") +
                        Sided(rows[0].balance, "Dr ") + "|");
        for (std::size_t row = 1; row < rows.size(); ++row) {
            const queries::LedgerLine& line = rows[row];
            lines.push_back("|" + basic::Format(*line.date, qm::DateMask) + "|" +
                            basic::Left(line.narration, 35) + "|" + line.type + "|" + Money(line.debit) +
                            "|" + Money(line.credit) + "|" + Sided(line.balance));
        }
        lines.push_back("||||" + Money(statement.Sums().debit) + "|" + Money(statement.Sums().credit) + "|" +
                        Sided(statement.Closing()));
    }
    return lines;
}

// A line of the results by the place of its name: on the left the debits of an account, the liabilities.
Lines ResultLines(queries::Reading& reading, const queries::Range& range) {
    using Part = queries::ResultRow::Part;
    Lines lines;
    for (const queries::ResultRow& row : queries::Results(reading, range)) {
        const bool sheet = row.statement == queries::Statement::BalanceSheet;
        const double left = sheet ? row.credit : row.debit, right = sheet ? row.debit : row.credit;
        if (row.part == Part::Total) lines.push_back("total|" + Money(left) + "|" + Money(right));
        if (row.part != Part::Ledger && row.part != Part::Result) continue;
        const bool onLeft =
            row.name == "Net Loss" || (right == 0 && (left != 0 || row.name != "Gross Profit B/F"));
        const std::string amount = Money(left + right);
        lines.push_back((onLeft ? "left|" : "right|") + row.name + "|" + (amount == "0.00" ? "" : amount));
    }
    return lines;
}

Lines ResultCells(const std::string& page) {
    Lines lines;
    for (const std::string& cells : CellsOf(page)) {
        std::vector<std::string> cell;
        for (std::size_t at = 1; at != 0; at = cells.find('|', at) + 1)
            cell.push_back(basic::Trim(cells.substr(at, cells.find('|', at) - at)));
        cell.resize(4);
        if (cell[0] == "Particulars" || cell[0] == "Liabilities" || cell[0].starts_with("TRADING") ||
            cell[0].starts_with("BALANCE"))
            continue;
        const std::string amount = cell[0].empty() ? cell[3] : cell[1];
        if (cell[0].empty() && cell[2].empty())
            lines.push_back("total|" + cell[1] + "|" + cell[3]);
        else
            lines.push_back((cell[0].empty() ? "right|" + cell[2] : "left|" + cell[0]) + "|" +
                            (amount == "0.00" ? "" : amount));
        lines.back() = basic::Replace(lines.back(), " :|", "|");
    }
    return lines;
}

TEST_P(QueriesAgreeTest, WithTheReportsToThePaisa) {
    Fill(GetParam());
    queries::Reading reading(books.DataPath());
    for (const int day : {1, 30, 200, 365, 500}) {
        SCOPED_TRACE("day " + std::to_string(day));
        const queries::Range upto{.from = {}, .upto = Date(day)};
        const Lines trial = TrialLines(reading, upto);  // while the totals of the whole year stand
        EXPECT_EQ(Text(WithoutLetters(CellsOf(TrialPage(Date(day)), "Particulars|Opening"))), Text(trial));
        const queries::Range range{.from = Date(day / 3 + 1), .upto = Date(day)};
        EXPECT_EQ(Text(CellsOf(StatementsPage(*range.from, *range.upto))),
                  Text(StatementLines(reading, range)));
        EXPECT_EQ(Text(ResultCells(ResultsPage(Date(day)))), Text(ResultLines(reading, upto)));
    }
}

INSTANTIATE_TEST_SUITE_P(SampleAndRandomBooks, QueriesAgreeTest, testing::Range(0u, 6u));

}  // namespace
