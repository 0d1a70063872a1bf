// Statements and the trial balance as texts. The expected texts were worked out by hand: balances by adding
// each row to the opening, cut narrations by counting their letters.
#include <gmock/gmock.h>

#include "ReportScreens.h"
#include "reports/frmPartyLedger.h"

using namespace testing;

namespace {

const std::string Open =
    "<html><head><title></title></head><body><table border = '0' width='100%' style = 'font size = 12' "
    "cellspacing = '0' cellpadding =0 >";
const std::string End = "</table></body></html>";
const std::string Heads =
    "<tr><td width = '15%' height='31'><b>Date</b></td><td width = '25%' height='31'><b>Particulars</b></td>"
    "<td width = '10%' height='31'><b>TrnType</b></td><td width = '15%' height='31' align = 'right'><b>Dr. "
    "Amount</b></td><td width = '15%' height='31' align = 'right'><b>Cr. Amount</b></td><td width = '20%' "
    "height='31' align = 'right'><b>Balance</b></td></tr><tr><td width='100%' height='1' "
    "colspan='6'><hr></td></tr>";
const std::string Rule = "<tr><td></td><td></td><td></td><td colspan = '3' width = '100%'><hr></td></tr>";

std::string Begin(const std::string& name) {
    return "<tr><td width = '100%' colspan = '2'><b>" + name +
           "</b></td></tr><tr><td width='100%' colspan = '6'><hr></td></tr>" + Heads;
}
std::string Right(const std::string& text) {
    return "<td align = 'right'>" + text + "</td>";
}
std::string Row(const std::string& date, const std::string& narration, const std::string& type,
                const std::string& debit, const std::string& credit, const std::string& balance) {
    return "<tr><td>" + date + "</td><td>" + narration + "</td><td>" + type + "</td>" + Right(debit) +
           Right(credit) + Right(balance) + "</tr>";
}
std::string Close(const std::string& debits, const std::string& credits, const std::string& balance) {
    return Rule + "<tr><td></td><td></td><td></td>" + Right(debits) + Right(credits) + Right(balance) +
           "</td>" + Rule + "<tr><td colspan = '6' width = '100%'><hr></td></tr>";
}

class PartyLedgerTest : public ReportScreensTest {
  protected:
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
    static Lines Totals() {
        return Rows("Select LedDetDRTxnTot, LedDetCRTxnTot, Closing_Bal From Ledger_Details");
    }

    qm::frmPartyLedger& screen = forms::Default<qm::frmPartyLedger>();
};

TEST_F(PartyLedgerTest, StatementsRunOnFromTheirOpening) {
    const int alpha = books.AddLedger("Alpha", "Debtors", 100, "D");
    const int beta = books.AddLedger("Beta", "Suppliers", 1250.5, "C");
    const int gamma = books.AddLedger("Gamma", "Sales");
    books.AddLedger("Idle", "Sales", 77);
    Post(alpha, 5, "50", "0", "Null", "Receipt");
    Post(alpha, 10, "0", "200", "'paid'", "Payment");
    Post(alpha, 10, "Null", "1", "''", "Receipt");
    Post(beta, 30, "250.5", "0");
    Post(gamma, 2, "0", "0");
    Post(gamma, 3, "0", "12345678.9");
    Post(gamma, 33, "5", "0");  // beyond today
    EXPECT_EQ(
        Statements(),
        Open + Begin("Alpha") +
            "<tr><td>01-Apr-2001</td><td>Opening Balance</td><td></td><td align = "
            "'right'>100.00</td><td></td>"
            "<td align = 'right'>100.00Dr </td><td></td></tr>" +
            Row("05-Apr-2001", "", "Receipt", "50.00", "0.00", "150.00Dr") +
            Row("10-Apr-2001", "", "Receipt", "", "1.00", "149.00Dr") +
            Row("10-Apr-2001", "paid", "Payment", "0.00", "200.00", "51.00Cr") +
            Close("150.00", "201.00", "51.00Cr") + Begin("Beta") +
            "<tr><td>01-Apr-2001</td><td>Opening Balance</td><td></td><td></td><td align = 'right'>1,250.50"
            "</td><td align = 'right'>1,250.50Cr</td><td></td></tr>" +
            Row("30-Apr-2001", "n", "Journal", "250.50", "0.00", "1,000.00Cr") +
            Close("250.50", "1,250.50", "1,000.00Cr") + Begin("Gamma") +
            "<tr><td>01-Apr-2001</td><td>Opening Balance</td><td></td><td></td><td align = 'right'>0.00</td>"
            "<td align = 'right'>0.00Cr</td><td></td></tr>" +
            Row("02-Apr-2001", "n", "Journal", "0.00", "0.00", "0.00Cr") +
            Row("03-Apr-2001", "n", "Journal", "0.00", "12,345,678.90", "12,345,678.90Cr") +
            Close("0.00", "12,345,678.90", "12,345,678.90Cr") + End);
    EXPECT_FALSE(screen.Loaded());  // unlike after a trial balance
}

TEST_F(PartyLedgerTest, LongNarrationsGoOnInOverlappingRows) {
    const int ledger = books.AddLedger("Alpha", "Debtors");
    const auto text = [](int length) {
        std::string letters;
        for (int i = 0; i < length; ++i) letters += static_cast<char>('a' + i % 26);
        return letters;
    };
    const struct {
        int length;
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
    EXPECT_THAT(Statements(), HasSubstr(rows + Rule));
}

// The openings are one running amount: a Null one takes over where the ledger before it ended, and what came
// before the range is part of it.
TEST_F(PartyLedgerTest, ANullOpeningStartsWhereTheLastLedgerEnded) {
    const int alpha = books.AddLedger("Alpha", "Debtors", 100);
    const int beta = books.AddLedger("Beta", "Debtors"), gamma = books.AddLedger("Gamma", "Debtors", 5, "C");
    Run("Update Ledger_Details Set Opening_Bal = Null Where Ledger_ID = " + std::to_string(beta));
    Post(alpha, 2, "7", "0");
    Post(alpha, 12, "1", "0");
    Post(beta, 2, "0", "8");
    Post(beta, 12, "1", "0");
    Post(gamma, 12, "1", "0");
    OpenScreen();
    screen.ui().dtpDateFrom->SetValue(Date(10));
    const std::string text = Statements();
    EXPECT_THAT(text, HasSubstr("107.00Dr </td>"));                      // Alpha: 100 + 7
    EXPECT_THAT(text, HasSubstr("<td align = 'right'>100.00Dr </td>"));  // Beta: 108 - 8
    EXPECT_THAT(text, HasSubstr("5.00Cr</td><td></td></tr>"));
    EXPECT_THAT(text, HasSubstr(Close("101.00", "0.00", "101.00Dr")));
}

// Neither option chosen is the trial balance too. Its from date is that of the report before: the zero date
// at first. A ledger without a row up to the date keeps the totals of the whole year.
TEST_F(PartyLedgerTest, TheTrialBalanceShowsWhatTheRowsAddUpTo) {
    const int alpha = books.AddLedger("Alpha", "Debtors", 1500, "D");
    const int beta = books.AddLedger("Beta", "Sales", 0, "C"), late = books.AddLedger("Late", "Bank");
    books.AddLedger("Never", "Bank", 20, "C");
    Post(alpha, 3, "25.5", "0");
    Post(beta, 3, "0", "25.5");
    Post(late, 60, "10", "4");
    Run("Update Ledger_Details Set LedDetDRTxnTot = 10, LedDetCRTxnTot = 4 Where Ledger_ID = " +
        std::to_string(late));
    Run("Update Ledger_Master Set Deleted = True Where Name = 'Late'");
    const std::string head =
        Open +
        "<tr><td width='100%' colspan='6' height='27'><p align='center'><font size='5'><b>Trial Balance"
        "</b></font></td></tr><tr><td width='100%' colspan='6'><p align='center'><font size='4'><b>(";
    const std::string body =
        " To 30/04/2001)</b></font></p><hr></td></tr><tr><td width='100%' colspan = '6'><hr></td></tr>"
        "<td width = '30%' height='31'><b>Particulars</b></td><td width = '10%' "
        "height='31'><b>Opening</b></td>"
        "<td width = '15%' height='31' align = 'right'><b>Dr. Txn. Amount</b></td><td width = '15%' "
        "height='31' align = 'right'><b>Cr. Txn. Amount</b></td><td width = '15%' height='31' align = "
        "'right'><b>Closing Dr.</b></td><td width = '15%' height='31' align = 'right'><b>Closing Cr.</b></td>"
        "</tr><tr><td width='100%' height='1' colspan='6'><hr></td></tr>"
        "<tr><td>Alpha</td>" +
        Right("1500D") + Right("25.50") + Right("0.00") + Right("1,525.50") + "</tr><tr><td>Beta</td>" +
        Right("0C") + Right("0.00") + Right("25.50") + "<td></td>" + Right("25.50") +
        "</tr><tr><td>Late</td>" + Right("0D") + Right("10.00") + Right("4.00") + Right("6.00") +
        "</tr><tr><td>Never</td>" + Right("20C") + Right("") + Right("") + "<td></td>" + Right("") +
        "</tr><tr><td></td><td></td><td colspan = '4' width = '100%' ><hr></td></tr>"
        "<tr><td></td><td></td>" +
        Right("35.50") + Right("29.50") + Right("1,531.50") + Right("25.50") +
        "</tr><tr><td></td><td></td><td colspan = '4' width = '100%' ><hr></td></tr>" + End;
    OpenScreen();
    EXPECT_EQ(TrialBalance(), head + "30-Dec-1899" + body);
    EXPECT_TRUE(screen.Visible());
    EXPECT_FALSE(screen.ui().ucPartyLedger->ui().cmdOk->Enabled());
    screen.Unload();
    Statements();
    OpenScreen();
    Click(screen.ui().optSumm);
    EXPECT_EQ(screen.ui().dtpDateFrom->Value(), Date(30));
    EXPECT_FALSE(screen.ui().dtpDateFrom->Enabled());
    EXPECT_EQ(TrialBalance(), head + "01-Apr-2001" + body);
}

TEST_F(PartyLedgerTest, PartialTotalsStandUntilTheScreenCloses) {
    const int ledger = books.AddLedger("Alpha", "Debtors", 10, "C");
    Post(ledger, 3, "25.5", "1");
    Post(ledger, 60, "10", "Null");
    OpenScreen();
    TrialBalance();
    EXPECT_EQ(Totals(), Lines{"25.5|1|14.5"});
    screen.Unload();
    EXPECT_EQ(Totals(), Lines{"35.5|1|24.5"});
}

TEST_F(PartyLedgerTest, AnEmptyYearAndAnEmptySelectionGiveAnEmptyPage) {
    books.AddLedger("Alpha", "Debtors", 10);
    EXPECT_EQ(Statements(), Open + End);
    OpenScreen();
    Click(screen.ui().optDetail);
    Click(screen.ui().ucPartyLedger->ui().optSel);
    EXPECT_EQ(Printed([&] { Click(screen.ui().ucPartyLedger->ui().cmdOk); }), Open + End);
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
