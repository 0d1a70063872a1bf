// The final results as a page. The expected pages were worked out by hand: each ledger's closing balance from
// its opening and its rows, its line by the type of its primary group, the feet from the sums of the lines.
#include <gmock/gmock.h>

#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "reports/FinalResults.h"
#include "reports/frmTPL.h"
#include "tests/reports/ResultTexts.h"
#include "tests/screens/ScreenFixture.h"

using namespace testing;

namespace {

using namespace resulttext;

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
    EXPECT_EQ(Page(), TradingHead() + LeftLine(true, "Goods <& bought", "300.00") +
                          RightLine(true, "Goods", "500.00") +
                          "<tr><td><u>Gross Profit</u></td><td align  = 'right'>200.00</td></tr>"
                          "<tr><td></td><td><hr></td><td></td><td><ht></td></tr>" +
                          TotalsRow("500.00", "500.00") + Rules +
                          "<tr><td></td><td></td><td align = 'lEFT'>Gross Profit B/F</td><td align = "
                          "'right'>200.00</td></tr>" +
                          LeftLine(true, "Rent", "50.00") +
                          "\r\n"
                          "<tr><td><u>Net Profit</u></td><td align  = 'right'>150.00</td></tr>" +
                          Rules + TotalsRow("200.00", "200.00") +
                          "<tr><td></td><td><hr></td> <td></td><td><hr></td></tr>"
                          "</table>" +
                          BalanceHead() + LeftLine(false, "Owner", "1,000.00") +
                          RightLine(false, "Cash", "1,150.00") +
                          LeftLine(false, "Net Profit Trf From P & L", "150.00") +
                          "<tr><td></td><td><hr></td><td></td><td><hr></td></td>" +
                          TotalsRow("1,150.00", "1,150.00") + Rules + End);
}

// 500 bought and 300 sold is a gross loss of 200; no other income, so as much is lost net.
TEST_F(FinalResultsTest, LossIsPrintedOnTheLeftAndCountsAsAnAsset) {
    const int cash = books.AddLedger("Cash", "Cash In Hand", 1000);
    books.AddLedger("Owner", "Capital", 1000, "C");
    const int bought = books.AddLedger("Bought", "Purchase"), sold = books.AddLedger("Sold", "Sales");
    Row(bought, 1, 500);
    Row(sold, 1, -300);
    Row(cash, 1, -200);
    EXPECT_EQ(
        Page(),
        TradingHead() + LeftLine(true, "Bought", "500.00") + RightLine(true, "Sold", "300.00") +
            "<tr><td></td><td></td><td><u>Gross Loss : </u></td> <td align  = 'right'>200.00</td></tr>"
            "<tr><td></td><td><hr></td><td></td><td><hr></td></tr>"
            "<tr><td> </td><td align  = 'right'> 500.00</td><td></td><td align  = 'right'>500.00</td></tr>"
            "<tr><td></td><td><hr></td><td></td><td><hr></td></tr>"
            "<tr><td align = 'lEFT'>Gross Loss B/F</td><td align = 'right'>200.00</td><td><td></td></td></tr>"
            "\r\n"
            "<tr><td><u>Net Loss  </u></td><td align  = 'right'>200.00</td></tr>"
            "<tr><td></td><td><hr></td><td></td> <td><hr></td></tr>" +
            TotalsRow("200.00", "200.00") + Rules + "</table>" + BalanceHead() +
            LeftLine(false, "Owner", "1,000.00") + RightLine(false, "Cash", "800.00") +
            RightLine(false, "Net Loss Trf From P & L", "200.00") +
            "<tr><td></td><td><hr></td><td></td><td><hr></td></td>" + TotalsRow("1,000.00", "1,000.00") +
            Rules + End);
}

// Without trading and profit lines no document is begun, and no result is handed on.
TEST_F(FinalResultsTest, TheBalanceSheetAloneIsMadeToAgree) {
    const struct {
        double asset, liability;
        std::string foot;
    } cases[] = {
        {1234.5, 1000,
         "<tr><td><u>Difference In Opening</u></td><td align  = 'right'>234.50</td></tr>"
         "<tr><td></td><td><hr></td><td></td> <td><hr></td></tr>"
         "<tr><td></td><td align  = 'right'>1,234.50</td><td></td><td align  = 'right'>1,234.50</td></tr>"
         "<tr><td></td><td><hr></td><td></td><td><hr> </td></tr>"},
        {1000, 1000.01,
         "<tr><td></td><td></td><td><u>Difference In Opening</u></td><td align  = 'right'>0.01</td></tr>"
         "<tr><td></td><td><hr></td><td></td><td><hr></td></tr>"
         "<tr><td></td><td align  = 'right'>1,000.01</td><td></td><td align  = 'right'>1,000.01</td></tr>"
         "<tr><td></td><td><hr></td><td></td><td><hr><td> </tr>"},
        {1000.004, 1000,
         "<tr><td></td><td><hr></td><td></td><td><hr></td></tr>"
         "<tr><td></td><td align  = 'right'>1,000.00</td><td></td><td align  = 'right'>1,000.00</td></tr>"
         "<tr><td></td><td><hr></td><td></td><td><hr><td> </tr>"},
    };
    const int bank = books.AddLedger("Bank", "Bank"), loan = books.AddLedger("Loan", "Liabilities", 0, "C");
    books.AddLedger("Idle", "Debtors");
    auto& screen = forms::Default<qm::frmTPL>();
    for (const auto& c : cases) {
        for (const auto& [ledger, opening] : {std::pair{bank, c.asset}, std::pair{loan, c.liability}})
            Run("Update Ledger_Details Set Opening_Bal = " + basic::NumberText(opening) +
                " Where Ledger_ID = " + std::to_string(ledger));
        const std::string asset = basic::Format(c.asset, "standard");
        EXPECT_EQ(Page(), BalanceHead() +
                              Line(false, "Loan", basic::Format(c.liability, "standard"), "", " ") +
                              Line(false, "", "", "Bank", asset) + c.foot + End);
        screen.Unload();
    }
    Run("Delete From Ledger_Details");
    EXPECT_EQ(Page(),
              BalanceHead() +
                  "<tr><td></td><td><hr></td><td></td><td><hr></td></td>"
                  "<tr><td></td><td align  = 'right'>0.00</td><td></td><td align  = 'right'>0.00</td></tr>"
                  "<tr><td></td><td><hr></td><td></td><td><hr></td></tr>" +
                  End);
}

// What is bought and sold alike: each statement hands on a line of nought. The date is not tested, and what
// lies beyond the year is posted all the same.
TEST_F(FinalResultsTest, AnEvenYearHandsOnLinesOfNought) {
    const int bought = books.AddLedger("Bought", "Purchase"), sold = books.AddLedger("Sold", "Sales");
    Row(bought, 500, 100);
    Row(sold, 1, -100);
    auto& screen = forms::Default<qm::frmTPL>();
    screen.ui().dtpDate->SetValue(basic::MakeDate(2005, 1, 2));
    EXPECT_EQ(Page(), TradingHead("02-Jan-2005") + LeftLine(true, "Bought", "100.00") +
                          RightLine(true, "Sold", "100.00") +
                          "<tr><td><u>Gross Profit</u></td><td align  = 'right'>0.00</td></tr>"
                          "<tr><td></td><td><hr></td><td></td><td><ht></td></tr>" +
                          TotalsRow("100.00", "100.00") + Rules +
                          "<tr><td></td><td></td><td align = 'lEFT'>Gross Profit B/F</td><td align = "
                          "'right'>0.00</td></tr>\r\n"
                          "<tr><td><u>Net Profit</u></td><td align  = 'right'>0.00</td></tr>" +
                          Rules + TotalsRow("0.00", "0.00") +
                          "<tr><td></td><td><hr></td> <td></td><td><hr></td></tr></table>" +
                          BalanceHead("02-Jan-2005") + LeftLine(false, "Net Profit Trf From P & L", "") +
                          "<tr><td></td><td><hr></td><td></td><td><hr></td></td>" +
                          TotalsRow("0.00", "0.00") + Rules + End);
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
    EXPECT_THAT(Page(), AllOf(StartsWith(TradingHead() +
                                         "\r\n<tr><td></td><td></td><td><u>Gross Loss : </u></td> <td "
                                         "align  = 'right'>7.00</td></tr>"),
                              HasSubstr(Line(false, "Debt", "7.00", " ", " ") +
                                        RightLine(false, "Net Loss Trf From P & L", "7.00"))));
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
    const std::string page = Page();
    EXPECT_THAT(page, HasSubstr("<tr><td><u>Gross Profit</u></td><td align  = 'right'>0.00</td></tr>"));
    EXPECT_THAT(page, HasSubstr(Line(true, "", "", "Fees", "40.00") + "\r\n<tr><td><u>Net Profit</u>"));
    EXPECT_THAT(page, Not(HasSubstr("Lost")));
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
    EXPECT_THAT(Page(), AllOf(HasSubstr(Line(false, "Left over", "7.00", "", " ")),
                              HasSubstr(Line(false, "", "", "Cash", "14.00"))));
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
        EXPECT_THAT(Page(), HasSubstr(Line(false, "", "", "Bank", figure))) << locale;
        forms::Default<qm::frmTPL>().Unload();
        EXPECT_EQ(Totals(), Lines{"0|0|1234567.5"});
    }
}

}  // namespace
