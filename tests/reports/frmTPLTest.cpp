// The final results as a page. The golden pages were worked out by hand: each ledger's closing balance from
// its opening and its rows, its line by the type of its primary group, the feet from the sums of the lines.
#include <gmock/gmock.h>

#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "reports/FinalResults.h"
#include "reports/frmTPL.h"
#include "tests/screens/ScreenFixture.h"
#include "tests/support/Golden.h"

using namespace testing;

namespace {

class FinalResultsTest : public test::ScreenTest {
  protected:
    FinalResultsTest() { basic::Clock::Set(basic::MakeDate(2001, 4, 30)); }
    ~FinalResultsTest() override {
        forms::Default<qm::frmTPL>().Unload();
        basic::Clock::Set({});
        basic::SetNumberLocale("");
    }

    // A row of the year on a day of April: debit positive.
    static void Row(int ledger, int day, double amount) {
        const std::string side = amount > 0 ? "LedgerDrAmt" : "LedgerCrAmt";
        Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerTxnDate, " + side + ") Values (1, " +
            std::to_string(ledger) + ", " + std::to_string(36979 + day) + ", " +
            basic::NumberText(amount > 0 ? amount : -amount) + ")");
    }
    std::string Page() {
        auto& screen = forms::Default<qm::frmTPL>();
        screen.Show();
        screen.ui().cmdView->Click.Fire();
        return screen.ui().ucHTMLBox->ui().dhtEdit->DocumentHTML();
    }
    static Lines Totals() {
        return Rows("Select LedDetDRTxnTot, LedDetCRTxnTot, Closing_Bal From Ledger_Details");
    }
};

// Cash 1000 + 500 - 300 - 50 = 1150; 500 sold less 300 bought is 200 gross, less 50 rent 150 net.
TEST_F(FinalResultsTest, ProfitGoesFromStatementToStatement) {
    books.AddLedger("Owner", "Capital", 1000, "C");
    const int cash = books.AddLedger("Cash", "Cash In Hand", 1000);
    const int bought = books.AddLedger(" Goods <& bought ", "Purchase"),
              sold = books.AddLedger("Goods", "Sales");
    const int rent = books.AddLedger("Rent", "Expenditure(Indirect)");
    for (const double amount : {500.0, -300.0, -50.0}) Row(cash, 10, amount);
    Row(sold, 10, -500);
    Row(bought, 10, 300);
    Row(rent, 30, 50);
    Run("Update Ledger_Master Set Deleted = True");  // which keeps no ledger from its line
    test::ExpectGolden("results-profit.html", Page());
}

// 500 bought and 300 sold is a gross loss of 200; no other income, so as much is lost net.
TEST_F(FinalResultsTest, LossIsPrintedOnTheLeftAndCountsAsAnAsset) {
    const int cash = books.AddLedger("Cash", "Cash In Hand", 1000);
    books.AddLedger("Owner", "Capital", 1000, "C");
    const int bought = books.AddLedger("Bought", "Purchase"), sold = books.AddLedger("Sold", "Sales");
    Row(bought, 1, 500);
    Row(sold, 1, -300);
    Row(cash, 1, -200);
    test::ExpectGolden("results-loss.html", Page());
}

// Without trading and profit lines no document is begun, and no result is handed on.
// Either side short, both alike once rounded, and no ledger at all.
TEST_F(FinalResultsTest, TheBalanceSheetAloneIsMadeToAgree) {
    const std::pair<double, double> cases[] = {{1234.5, 1000}, {1000, 1000.01}, {1000.004, 1000}};
    const int bank = books.AddLedger("Bank", "Bank"), loan = books.AddLedger("Loan", "Liabilities", 0, "C");
    books.AddLedger("Idle", "Debtors");
    std::string pages;
    const auto print = [&] {
        pages += Page() + "\r\n";
        forms::Default<qm::frmTPL>().Unload();
    };
    for (const auto& [asset, liability] : cases) {
        for (const auto& [ledger, opening] : {std::pair{bank, asset}, std::pair{loan, liability}})
            Run("Update Ledger_Details Set Opening_Bal = " + basic::NumberText(opening) +
                " Where Ledger_ID = " + std::to_string(ledger));
        print();
    }
    Run("Delete From Ledger_Details");
    print();
    test::ExpectGolden("balance-sheets-alone.html", pages);
}

// What is bought and sold alike: each statement hands on a line of nought. The date is not tested, and what
// lies beyond the year is posted all the same.
TEST_F(FinalResultsTest, AnEvenYearHandsOnLinesOfNought) {
    const int bought = books.AddLedger("Bought", "Purchase"), sold = books.AddLedger("Sold", "Sales");
    Row(bought, 500, 100);
    Row(sold, 1, -100);
    auto& screen = forms::Default<qm::frmTPL>();
    screen.ui().dtpDate->SetValue(basic::MakeDate(2005, 1, 2));
    test::ExpectGolden("results-even.html", Page());
}

// Binary sums leave a trace of a profit, which goes through the statement's text like any other result.
TEST_F(FinalResultsTest, ResultsAreHandedOnAsTheirTexts) {
    const struct {
        double bought;
        const char* profit;
    } cases[] = {{0, "0.3"}, {0.3, "5.55111512312578E-17"}};
    books.AddLedger("Sold", "Sales", 0.1, "C");
    books.AddLedger("More", "Sales", 0.2, "C");
    books.AddLedger("Bought", "Purchase", 0.3);
    for (const auto& [bought, profit] : cases) {
        Run("Update Ledger_Details Set Opening_Bal = " + basic::NumberText(bought) + " Where Bal_Type = 'D'");
        Page();
        EXPECT_EQ(Rows("Select Type From tblsysTPL Where AmtCr = " + std::string(profit)), (Lines{"P", "B"}));
        forms::Default<qm::frmTPL>().Unload();
    }
}

// Lines that an earlier run or another program left. One without a particular counts and is printed on the
// Balance Sheet only; one without an amount is a failure, and nothing is shown.
TEST_F(FinalResultsTest, LeftOversWithNulls) {
    const auto leave = [](const std::string& line) {
        Run("Insert Into tblsysTPL (ParticularDr, AmtDr, ParticularCr, AmtCr, Type) Values (" + line + ")");
    };
    leave("'Odd', 7, Null, 0, 'T'");
    leave("Null, 0, 'Debt', 7, 'B'");
    test::ExpectGolden("results-left-overs.html", Page());
    auto& screen = forms::Default<qm::frmTPL>();
    screen.Unload();
    leave("'Odd', Null, ' ', 0, 'T'");
    ExpectBox("Run-time error '94':\n\nInvalid use of Null", 0);
    EXPECT_EQ(Page(), "");
    EXPECT_FALSE(screen.ui().cmdPrint->Enabled());
}

// A profit line without trading: the trading section runs all the same, with totals of nought.
TEST_F(FinalResultsTest, AGroupWithoutAStatementAndAnEmptyTradingSection) {
    books.AddLedger("Fees", "Income(Indirect)", 40, "C");
    books.AddLedger("Lost", "Debtors", 40);
    Run("Update Group_Head_Master Set GrpType = Null Where Group_Head_Name = 'Debtors'");
    test::ExpectGolden("results-without-trading.html", Page());
    EXPECT_EQ(Rows("Select ParticularDr, AmtDr, ParticularCr, AmtCr, Type From tblsysTPL"),
              (Lines{"Lost|40| |0|", " |0|Fees|40|P", " |0|Gross Profit B/F|0|P",
                     " |0|Net Profit Trf From P & L|40|B"}));
}

TEST_F(FinalResultsTest, PartialTotalsStandUntilTheScreenClosesAndLeftOversAddUp) {
    const int cash = books.AddLedger("Cash", "Cash In Hand", 10);
    Row(cash, 2, 5);
    Row(cash, 30, -1);
    Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerTxnDate, LedgerDrAmt) Values (9, " +
        std::to_string(cash) + ", 37200, 100)");
    Run("Insert Into tblsysTPL (ParticularCr, AmtCr, Type) Values ('Left over', 7, 'B')");
    auto& screen = forms::Default<qm::frmTPL>();
    EXPECT_FALSE(screen.ui().cmdPrint->Enabled());
    test::ExpectGolden("results-adding-up.html", Page());
    EXPECT_EQ(Totals(), Lines{"5|1|14"});
    EXPECT_TRUE(screen.ui().cmdPrint->Enabled());
    EXPECT_FALSE(screen.ui().cmdView->Enabled());
    screen.Unload();
    EXPECT_EQ(Totals(), Lines{"105|1|114"});
    EXPECT_EQ(Rows("Select * From tblsysTPL"), Lines{});
}

TEST_F(FinalResultsTest, PrintsOnceThereAreResultsAndCloses) {
    auto& screen = forms::Default<qm::frmTPL>();
    Show(screen);
    EXPECT_EQ(screen.Caption(), "Trading Profit & Loss Account");
    EXPECT_EQ(screen.ui().dtpDate->Value(), basic::MakeDate(2001, 4, 30));
    const auto ctrlP = [&] {
        QTest::keyClick(screen.Window()->focusWidget(), Qt::Key_P, Qt::ControlModifier);
    };
    EXPECT_EQ(DialogOf([&] { Click(screen.ui().cmdPrint); }), "none");
    EXPECT_EQ(DialogOf(ctrlP), "none");
    QTest::keyClick(screen.Window(), Qt::Key_V, Qt::AltModifier);
    EXPECT_EQ(DialogOf([&] { Click(screen.ui().cmdPrint); }), "Print");
    BringToFront(screen);
    EXPECT_EQ(DialogOf(ctrlP), "Print");
    const forms::html::Paper& paper = screen.ui().ucHTMLBox->ui().dhtEdit->PaperUsed();
    EXPECT_EQ(paper.Title, "Trading Profit & Loss Account");
    EXPECT_EQ(paper.Period, "up to 30-Apr-2001");
    BringToFront(screen);
    QTest::keyClick(screen.Window(), Qt::Key_C, Qt::AltModifier);
    EXPECT_FALSE(screen.Loaded());
}

// Only the reports' figures follow the locale; what goes through statements does not.
TEST_F(FinalResultsTest, FiguresFollowTheLocale) {
    books.AddLedger("Bank", "Bank", 1234567.5);
    const struct {
        const char *locale, *figure;
    } cases[] = {{"en_IN", "12,34,567.50"}, {"de_DE", "1.234.567,50"}, {"C", "1,234,567.50"}};
    for (const auto& [locale, figure] : cases) {
        basic::SetNumberLocale(locale);
        EXPECT_THAT(Page(),
                    HasSubstr(std::string("Bank</td><td colspan =1 align  = 'right'>") + figure + "</td>"))
            << locale;
        forms::Default<qm::frmTPL>().Unload();
        EXPECT_EQ(Totals(), Lines{"0|0|1234567.5"});
    }
}

}  // namespace
