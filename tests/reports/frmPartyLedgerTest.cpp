// Statements and the trial balance as texts. The expected texts were worked out by hand: balances by adding
// each row to the opening, cut narrations by counting their letters.
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

#include "tests/accounts/PartyScreens.h"

using namespace testing;

namespace {

using namespace ledgertext;

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
    EXPECT_EQ(
        Statements(),
        Open + Begin("Alpha") + Opening("01-Apr-2001", "100.00Dr ") +
            Row("05-Apr-2001", "", "Receipt", "50.00", "0.00", "150.00Dr") +
            Row("10-Apr-2001", "", "Receipt", "", "1.00", "149.00Dr") +
            Row("10-Apr-2001", "<b>paid & done", "Payment", "0.00", "200.00", "51.00Cr") +
            Close("150.00", "201.00", "51.00Cr") + Begin("Beta") + Opening("01-Apr-2001", "1,250.50Cr") +
            Row("30-Apr-2001", "n", "Journal", "250.50", "0.50", "1,000.00Cr") +
            Close("250.50", "1,251.00", "1,000.00Cr") + Begin("Gamma") + Opening("01-Apr-2001", "0.00Cr") +
            Row("02-Apr-2001", "n", "Journal", "0.00", "0.00", "0.00Cr") +
            Row("03-Apr-2001", "n", "Journal", "0.00", "12,345,678.90", "12,345,678.90Cr") +
            Close("0.00", "12,345,678.90", "12,345,678.90Cr") + End);
    EXPECT_FALSE(screen.Loaded());  // unlike after a trial balance
}

TEST_F(PartyLedgerTest, LongNarrationsGoOnInOverlappingRows) {
    const int ledger = books.AddLedger("Alpha", "Debtors");
    const auto text = Letters;
    const struct {
        std::size_t length;
        std::string rows;  // that follow
    } cases[] = {
        {35, ""},
        {36, "<tr><td>j</td></tr>"},
        {85, "<tr><td>" + text(85).substr(35) + "</td></tr>"},
        {86, "<tr><td>" + text(86).substr(35) + "</td></tr><tr><td>" + text(86).substr(85) + "</td></tr>"},
        {200,
         "<tr><td>" + text(200).substr(35, 85) + "</td></tr><tr><td>" + text(200).substr(85) + "</td></tr>"},
    };
    int day = 0;
    std::string rows;
    for (const auto& c : cases) {
        Post(ledger, ++day, "1", "0", "'" + text(c.length) + "'");
        rows += Row("0" + std::to_string(day) + "-Apr-2001", text(35), "Journal", "1.00", "0.00",
                    std::to_string(day) + ".00Dr") +
                c.rows;
    }
    EXPECT_EQ(Statements(), Open + Begin("Alpha") + Opening("01-Apr-2001", "0.00Cr") + rows +
                                Close("5.00", "0.00", "5.00Dr") + End);
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
    const auto statement = [](const std::string& name, const std::string& opening, const std::string& balance,
                              const std::string& debits, const std::string& credits) {
        return Begin(name) + Opening("10-Apr-2001", opening) +
               Row("12-Apr-2001", "n", "Journal", "1.00", "0.00", balance) + Close(debits, credits, balance);
    };
    EXPECT_EQ(Statements(), Open + statement("Alpha", "107.00Dr ", "108.00Dr", "108.00", "0.00") +
                                statement("Beta", "110.00Dr ", "111.00Dr", "111.00", "0.00") +
                                statement("Gamma", "5.00Cr", "4.00Cr", "1.00", "5.00") + End);
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
    const std::string rows = "<tr><td>Alpha</td>" + Right("1500D") + Right("25.50") + Right("0.00") +
                             Right("1,525.50") + "</tr><tr><td>Beta</td>" + Right("0C") + Right("0.00") +
                             Right("25.50") + "<td></td>" + Right("25.50") + "</tr><tr><td>Late</td>" +
                             Right("0D") + Right("10.00") + Right("4.00") + Right("6.00") +
                             "</tr><tr><td>Nev<er & Co</td>" + Right("20C") + Right("") + Right("") +
                             "<td></td>" + Right("") + "</tr>";
    const std::string totals = Right("35.50") + Right("29.50") + Right("1,531.50") + Right("25.50");
    OpenScreen();
    EXPECT_EQ(TrialBalance(), Trial("30-Dec-1899", "30/04/2001", rows, totals));
    EXPECT_TRUE(screen.Visible());
    EXPECT_FALSE(screen.ui().ucPartyLedger->ui().cmdOk->Enabled());
    screen.Unload();
    Statements();
    OpenScreen();
    Click(screen.ui().optSumm);
    EXPECT_EQ(screen.ui().dtpDateFrom->Value(), Date(30));
    EXPECT_FALSE(screen.ui().dtpDateFrom->Enabled());
    EXPECT_EQ(TrialBalance(), Trial("01-Apr-2001", "30/04/2001", rows, totals));
    Click(screen.ui().optDetail);
    EXPECT_TRUE(screen.ui().dtpDateFrom->Enabled());
    Click(screen.ui().ucPartyLedger->ui().cmdCancel);
    EXPECT_FALSE(screen.Loaded());
}

TEST_F(PartyLedgerTest, AnEmptyYearAndAnEmptySelectionGiveAnEmptyPage) {
    books.AddLedger("Alpha", "Debtors", 10);
    EXPECT_EQ(Statements(), Open + End);
    EXPECT_FALSE(screen.Loaded());
    OpenScreen();
    Click(screen.ui().optDetail);
    Click(screen.ui().ucPartyLedger->ui().optSel);
    EXPECT_EQ(Printed([&] { Click(screen.ui().ucPartyLedger->ui().cmdOk); }), Open + End);
    Run("Delete From Ledger_Details");
    EXPECT_THAT(TrialBalance(), EndsWith("(01-Apr-2001 To 30/04/2001)</b></font></p><hr></td></tr>" + End));
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
                AllOf(HasSubstr("<b>Alpha</b>"), Not(HasSubstr("<b>Omega</b>")), Not(HasSubstr(End))));
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
