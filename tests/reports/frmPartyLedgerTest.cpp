// Statements and the trial balance as texts. The golden pages were worked out by hand: balances by adding
// each row to the opening, cut narrations by counting their letters.
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

#include "platform/basic/Text.h"
#include "reports/frmPartyLedger.h"
#include "tests/reports/ReportScreens.h"
#include "tests/support/Golden.h"

using namespace testing;

namespace {

class PartyLedgerTest : public ReportScreensTest {
  protected:
    PartyLedgerTest() { forms::Default<qm::frmLedger>().SetFromDate({}); }  // the zero date, as at first
    ~PartyLedgerTest() override {
        screen.Unload();
        forms::Default<qm::frmLedger>().SetFromDate({});
    }

    static void Post(int ledger, int day, const std::string& debit, const std::string& credit,
                     const std::string& narration = "'n'", const std::string& type = "Journal") {
        Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerTxnDate, LedgerTrnType, LedgerDrAmt, "
            "LedgerCrAmt, LedgerNarration) Values (1, " +
            std::to_string(ledger) + ", " + Day(day) + ", '" + type + "', " + debit + ", " + credit + ", " +
            narration + ")");
    }
    void OpenScreen() {
        screen.Show();
        BringToFront(screen);
    }
    // The statements of all ledgers, in the order of their names.
    std::string Statements() {
        OpenScreen();
        Click(screen.ui().optDetail);
        Click(screen.ui().ucPartyLedger->ui().optAll);
        return Printed([&] { Click(screen.ui().ucPartyLedger->ui().cmdOk); });
    }
    std::string TrialBalance() {
        return Printed([&] {
            screen.ui().ucPartyLedger->ui().optAll->Click.Fire();
            Click(screen.ui().ucPartyLedger->ui().cmdOk);
        });
    }
    qm::frmPartyLedger& screen = forms::Default<qm::frmPartyLedger>();
};

// A row with both amounts counts by its debit; a narration and a name go into the page as they stand.
TEST_F(PartyLedgerTest, StatementsRunOnFromTheirOpening) {
    const int alpha = books.AddLedger("Alpha", "Debtors", 100, "D");
    const int beta = books.AddLedger("Beta", "Suppliers", 1250.5, "C");
    const int gamma = books.AddLedger("Gamma", "Sales");
    books.AddLedger("Idle", "Sales", 77);
    Post(alpha, 5, "50", "0", "Null", "Receipt");
    Post(alpha, 10, "0", "200", "'<b>paid & done'", "Payment");
    Post(alpha, 10, "Null", "1", "''", "Receipt");
    Post(beta, 30, "250.5", "0.5");
    Post(gamma, 2, "0", "0");
    Post(gamma, 3, "0", "12345678.9");
    Post(gamma, 33, "5", "0");  // beyond today
    Run("Update Ledger_Master Set Deleted = True Where Name = 'Gamma'");
    test::ExpectGolden("statements.html", Statements());
    EXPECT_FALSE(screen.Loaded());  // unlike after a trial balance
    EXPECT_EQ(Rows("Select LedDetDRTxnTot From Ledger_Details Where Ledger_ID = " + std::to_string(gamma)),
              Lines{"5"})
        << "closing rebuilds the totals of the whole year";
}

// Of 35 letters, 36, and so on: what goes on begins after the 35th, and a third row after the 85th.
TEST_F(PartyLedgerTest, LongNarrationsGoOnInOverlappingRows) {
    const int ledger = books.AddLedger("Alpha", "Debtors");
    int day = 0;
    for (const std::size_t length : {35, 36, 85, 86, 200})
        Post(ledger, ++day, "1", "0", "'" + Letters(length) + "'");
    test::ExpectGolden("long-narrations.html", Statements());
}

// The openings are one running amount: a Null one takes over where the ledger before it ended, and what came
// before the range is part of it. Alpha: 100 + 7, then 1 more: 108. Annex has nothing in the range and is not
// printed, its 10 counts: 118. Beta: 118 - 8. Gamma has an opening of its own.
TEST_F(PartyLedgerTest, ANullOpeningStartsWhereTheLastLedgerEnded) {
    const int alpha = books.AddLedger("Alpha", "Debtors", 100), annex = books.AddLedger("Annex", "Debtors");
    const int beta = books.AddLedger("Beta", "Debtors"), gamma = books.AddLedger("Gamma", "Debtors", 5, "C");
    Run("Update Ledger_Details Set Opening_Bal = Null Where Ledger_ID In (" + std::to_string(annex) + ", " +
        std::to_string(beta) + ")");
    Post(alpha, 2, "7", "0");
    Post(annex, 3, "10", "Null");
    Post(beta, 2, "0", "8");
    for (const int ledger : {alpha, beta, gamma}) Post(ledger, 12, "1", "0");
    OpenScreen();
    screen.ui().dtpDateFrom->SetValue(Date(10));
    test::ExpectGolden("statements-without-openings.html", Statements());
}

// Neither option chosen is the trial balance too. Its from date is that of the report before: the zero date
// at first. A ledger without a row up to the date keeps the totals of the whole year.
TEST_F(PartyLedgerTest, TheTrialBalanceShowsWhatTheRowsAddUpTo) {
    const int alpha = books.AddLedger("Alpha", "Debtors", 1500, "D");
    const int beta = books.AddLedger("Beta", "Sales", 0, "C"), late = books.AddLedger("Late", "Bank");
    books.AddLedger("Nev<er & Co", "Bank", 20, "C");
    Post(alpha, 3, "25.5", "0");
    Post(beta, 3, "0", "25.5");
    Post(late, 60, "10", "4");
    Run("Update Ledger_Details Set LedDetDRTxnTot = 10, LedDetCRTxnTot = 4 Where Ledger_ID = " +
        std::to_string(late));
    Run("Update Ledger_Master Set Deleted = True Where Name = 'Late'");
    OpenScreen();
    const std::string first = TrialBalance();
    test::ExpectGolden("trial-balance.html", first);
    EXPECT_TRUE(screen.Visible());
    EXPECT_FALSE(screen.ui().ucPartyLedger->ui().cmdOk->Enabled());
    screen.Unload();
    Statements();
    OpenScreen();
    Click(screen.ui().optSumm);
    EXPECT_EQ(screen.ui().dtpDateFrom->Value(), Date(30));
    EXPECT_FALSE(screen.ui().dtpDateFrom->Enabled());
    EXPECT_EQ(TrialBalance(), basic::Replace(first, "30-Dec-1899", "01-Apr-2001"));
    Click(screen.ui().optDetail);
    EXPECT_TRUE(screen.ui().dtpDateFrom->Enabled());
    Click(screen.ui().ucPartyLedger->ui().cmdCancel);
    EXPECT_FALSE(screen.Loaded());
}

TEST_F(PartyLedgerTest, AnEmptyYearAndAnEmptySelectionGiveAnEmptyPage) {
    books.AddLedger("Alpha", "Debtors", 10);
    EXPECT_EQ(Statements(), EmptyPage);
    EXPECT_FALSE(screen.Loaded());
    OpenScreen();
    Click(screen.ui().optDetail);
    Click(screen.ui().ucPartyLedger->ui().optSel);
    EXPECT_EQ(Printed([&] { Click(screen.ui().ucPartyLedger->ui().cmdOk); }), EmptyPage);
    Run("Delete From Ledger_Details");
    EXPECT_THAT(TrialBalance(),
                EndsWith("(01-Apr-2001 To 30/04/2001)</b></font></p><hr></td></tr></table></body></html>"));
}

// Every row of the books has one amount at least; one that has none is no row of nought.
TEST_F(PartyLedgerTest, ARowWithoutAmountsIsAFailure) {
    Post(books.AddLedger("Alpha", "Debtors", 10), 2, "Null", "Null");
    OpenScreen();
    Click(screen.ui().optDetail);
    Click(screen.ui().ucPartyLedger->ui().optAll);
    ExpectBox("Run-time error '94':\n\nInvalid use of Null", 0);
    Click(screen.ui().ucPartyLedger->ui().cmdOk);
    EXPECT_TRUE(screen.Visible());
    EXPECT_FALSE(forms::Default<qm::frmLedger>().Visible());
}

// The wait is drawn out until its box is there, then its Cancel is clicked: before the last ledger.
TEST_F(PartyLedgerTest, ACancelledReportIsNotShownAndTheScreenCloses) {
    for (const char* name : {"Alpha", "Beta", "Gamma", "Omega"})
        Post(books.AddLedger(name, "Bank"), 2, "1", "0");
    QTimer user;
    int clicks = 0;
    QObject::connect(&user, &QTimer::timeout, [&] {
        const auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
        if (!box) return QTest::qSleep(550);
        user.stop();
        Click(box->findChild<QPushButton*>());
        ++clicks;
    });
    OpenScreen();
    Click(screen.ui().optDetail);
    Click(screen.ui().ucPartyLedger->ui().optAll);
    user.start(0);
    Click(screen.ui().ucPartyLedger->ui().cmdOk);
    EXPECT_EQ(clicks, 1);
    const auto& page = forms::Default<qm::frmLedger>();
    EXPECT_FALSE(page.Loaded() && page.Visible());
    EXPECT_THAT(page.ReportText(),
                AllOf(HasSubstr("<b>Alpha</b>"), Not(HasSubstr("<b>Omega</b>")), Not(HasSubstr("</table>"))));
    EXPECT_FALSE(screen.Loaded());
}

TEST_F(PartyLedgerTest, DatesOutsideTheYearAndOutOfOrderHoldTheFocus) {
    const std::string outside =
        "Please select the date in Financial Year range \r\n\r\n'01-Apr-2001' to '31-Mar-2002'";
    OpenScreen();
    EXPECT_EQ(screen.ui().dtpDateFrom->Value(), Date(1));
    const struct {
        forms::DTPicker* picker;
        int day;
        std::string box;
        int after;
    } cases[] = {
        {screen.ui().dtpDateFrom, 0, outside, 1},
        {screen.ui().dtpDateFrom, 366, outside, 1},
        {screen.ui().dtpDateFrom, 31, "From Date cannot be more than To Date", 31},
        {screen.ui().dtpDateUpTo, 366, outside, 30},
        {screen.ui().dtpDateUpTo, 0, outside, 30},
    };
    for (const auto& c : cases) {
        c.picker->SetFocus();
        c.picker->SetValue(Date(c.day));
        ExpectBox(c.box);
        screen.ui().ucPartyLedger->SetFocus();
        EXPECT_EQ(c.picker->Value(), Date(c.after));
        EXPECT_EQ(Active(screen), c.picker->Name());
        screen.ui().dtpDateFrom->SetValue(Date(1));
        screen.ui().dtpDateUpTo->SetValue(Date(30));
    }
    screen.ui().dtpDateUpTo->SetFocus();
    screen.ui().dtpDateFrom->SetValue(Date(3));
    screen.ui().dtpDateUpTo->SetValue(Date(2));
    ExpectBox("To Date cannot be less than From Date");
    screen.ui().ucPartyLedger->SetFocus();
    EXPECT_EQ(Active(screen), "dtpDateUpTo");
    screen.ui().dtpDateUpTo->SetValue(Date(3));  // the same day is in order
    screen.ui().ucPartyLedger->SetFocus();
    EXPECT_NE(Active(screen), "dtpDateUpTo");
}

}  // namespace
