#include "core/FDBCode.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "tests/screens/ScreenFixture.h"
#include "vouchers/frmDayBook.h"
#include "vouchers/frmVoucher.h"

using namespace testing;

namespace {

constexpr int Today = 37019;  // 10-May-2001

class DayBookTest : public test::ScreenTest {
  protected:
    DayBookTest() { basic::Clock::Set(basic::MakeDate(2001, 5, 10)); }
    ~DayBookTest() override {
        form.Unload();
        basic::Clock::Set({});
    }

    // A row as another program would write it.
    static void Row(int voucher, int day, const std::string& amounts, const std::string& type = "Journal",
                    const std::string& ledger = "Cash", int code = 40) {
        Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt, LedgerTrnType, "
            "LedgerName, LedgerCode) Values (" +
            std::to_string(voucher) + ", " + std::to_string(day) + ", " + amounts + ", '" + type + "', '" +
            ledger + "', " + std::to_string(code) + ")");
    }
    forms::ListView& List() { return *form.ui().lvwDayBook; }
    // All that a line holds, its key at the end.
    Lines Whole() {
        Lines lines;
        for (int i = 1; i <= List().Count(); ++i) {
            const forms::ListLine line = List().Item(i);
            std::string text = line.Text;
            for (const std::string& item : line.SubItems) text += "|" + item;
            lines.push_back(text + "|" + line.Key);
        }
        return lines;
    }
    // The voucher number and the amounts of each line.
    Lines Shown() {
        Lines lines;
        for (int i = 1; i <= List().Count(); ++i) {
            const forms::ListLine line = List().Item(i);
            lines.push_back(line.SubItem(2) + ":" + line.SubItem(4) + ":" + line.SubItem(5));
        }
        return lines;
    }
    // The controls of the frame that are shown, with what lblComp says.
    std::string Arranged() {
        std::string names;
        for (const forms::Control* control : std::initializer_list<forms::Control*>{
                 ui().lblFrom, ui().dtpDateFrom, ui().lblTo, ui().dtpDateUpTo, ui().cboFilterValue,
                 ui().txtDtAmt, ui().txtDtUpto})
            if (control->Visible()) names += control->Name() + " ";
        return names + ui().lblComp->Caption();
    }
    Ui::frmDayBook& ui() { return form.ui(); }
    void Ctrl(Qt::Key key) { Key(form, key, Qt::ControlModifier); }
    void ClickCellOf(int line) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().CellRect(line, 1).center());
    }
    void ClickHeading(int column) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().CellRect(0, column - 1).center());
    }
    void ExpectVoucher(
        const std::string& number, const std::function<void()>& meanwhile = [] {}) {
        script.Modal("frmVoucher", [=](forms::Form&) {
            EXPECT_EQ(forms::Default<qm::frmVoucher>().ui().txtVoucherNo->Text(), number);
            meanwhile();
        });
    }
    static std::string Date(forms::DTPicker& picker) { return basic::ToText(picker.Value()); }

    qm::frmDayBook form;
};

// Two rows that are alike are two lines here, and one wherever a filter stands.
TEST_F(DayBookTest, OpensOnTodaysRowsAndClearComesBackToThem) {
    Row(8, Today, "12.5, 0");
    Row(7, Today, "0, 12.345", "Receipt", "Sales", 41);
    Row(7, Today, "Null, Null", "Receipt", "Sales", 41);
    Row(6, Today - 1, "1, 0");
    Row(8, Today, "12.5, 0");
    Run("Update tb_Ledger2001 Set LedgerMcGenerated = True Where LedgerTrnNo = 7");
    Show(form);
    EXPECT_EQ(Whole(), (Lines{"10-May-2001|Cash|8|Journal|12.50||False|40vD8S1",
                              "10-May-2001|Sales|7|Receipt||12.35|True|41vC7S2",
                              "10-May-2001|Sales|7|Receipt|||True|41vC7S3",
                              "10-May-2001|Cash|8|Journal|12.50||False|40vD8S4"}));
    EXPECT_FALSE(ui().frFilter->Visible());
    Ctrl(Qt::Key_F);
    EXPECT_TRUE(ui().frFilter->Visible());
    EXPECT_EQ(ui().cmdOk->Top(), 1440);
    Ctrl(Qt::Key_C);
    EXPECT_FALSE(ui().frFilter->Visible());
    EXPECT_EQ(Shown(), (Lines{"8:12.50:", "7::12.35", "7::"}));
}

TEST_F(DayBookTest, WithoutALineNothingIsDoneToOne) {
    Row(1, Today - 1, "5, 0");
    Show(form);
    EXPECT_EQ(Shown(), Lines{});
    const QImage noted = List().grab().toImage();
    List().SetEmptyNote("");
    EXPECT_NE(List().grab().toImage(), noted) << "it says that nothing is there";
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_D}) Ctrl(key);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, List().CellRect(1, 1).center());
    Row(2, Today, "5, 0");
    Ctrl(Qt::Key_R);
    EXPECT_EQ(Shown(), Lines{"2:5.00:"});
}

// Coming back from the voucher screen fills the list from the rows that were read before; Add reads them
// anew.
TEST_F(DayBookTest, EditShowsTheOldRowsUntilRefreshAndAddTheNewOnes) {
    Row(21, Today, "1, 0");
    Row(22, Today, "2, 0");
    Show(form);
    ClickCellOf(2);
    ExpectVoucher("22", [] { Run("Update tb_Ledger2001 Set LedgerDrAmt = 3"); });
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, List().CellRect(2, 1).center());
    EXPECT_EQ(Shown(), (Lines{"21:1.00:", "22:2.00:"}));
    ExpectVoucher("21");
    Ctrl(Qt::Key_E);
    EXPECT_EQ(Shown(), (Lines{"21:1.00:", "22:2.00:"})) << "the first line is the selected one again";
    Ctrl(Qt::Key_R);
    EXPECT_EQ(Shown(), (Lines{"21:3.00:", "22:3.00:"}));
    ExpectVoucher("<New>", [] { Row(23, Today, "4, 0"); });
    Ctrl(Qt::Key_A);
    EXPECT_EQ(Shown(), (Lines{"21:3.00:", "22:3.00:", "23:4.00:"}));
    Ctrl(Qt::Key_X);
    EXPECT_FALSE(form.Loaded());
}

TEST_F(DayBookTest, EachFieldArrangesTheFrame) {
    const struct {
        const char *field, *shown;
    } cases[] = {{"Date Range", "lblFrom dtpDateFrom lblTo dtpDateUpTo ="},
                 {"Date", "dtpDateFrom ="},
                 {"Type", "cboFilterValue ="},
                 {"Amount", "txtDtAmt >="},
                 {"Ledger", "cboFilterValue ="}};
    books.AddLedger("Zinc", "Debtors");
    books.AddLedger("alum", "Debtors");
    Run("Update Ledger_Master Set Deleted = True Where Name = 'Zinc'");
    Show(form);
    Ctrl(Qt::Key_F);
    for (int again = 0; again < 2; ++again)
        for (const auto& [field, shown] : cases) {
            ui().cboFilterFld->SetText(field);
            EXPECT_EQ(Arranged(), shown) << field;
        }
    forms::ComboBox& values = *ui().cboFilterValue;
    const auto listed = [&values] {
        std::string all;
        for (int i = 0; i < values.ListCount(); ++i) all += values.List(i) + " ";
        return all;
    };
    EXPECT_EQ(listed(), "alum Zinc ");
    ui().cboFilterFld->SetText("Type");
    EXPECT_EQ(listed(), "Receipt Payment Contra Journal ");
}

TEST_F(DayBookTest, EachFieldFilters) {
    Row(5, 36980, "50, 0", "Receipt");
    Row(5, 36980, "0, 50", "Receipt", "Sales");
    Row(4, 37344, "100, 0", "Payment", "sales");
    Row(3, Today, "0, 100.5", "Journal", "Bank");
    Row(3, Today, "0, 100.5", "Journal", "Bank");
    Row(2, Today + 1, "0, 0", "Contra", "Bank");
    const struct {
        const char *field, *value;
        basic::Date from, upTo;
        Lines shown;
    } cases[] = {
        {"Date Range",
         "",
         basic::MakeDate(2001, 4, 1),
         basic::MakeDate(2001, 5, 10),
         {"5:50.00:", "5::50.00", "3::100.50"}},
        {"Date Range", "", basic::MakeDate(2001, 5, 11), basic::MakeDate(2002, 3, 31), {"2::", "4:100.00:"}},
        {"Date", "", basic::MakeDate(2002, 3, 31), basic::MakeDate(2001, 4, 1), {"4:100.00:"}},
        {"Type", "Journal", {}, {}, {"3::100.50"}},
        {"Type", "", {}, {}, {}},
        {"Ledger", "Sales", {}, {}, {"5::50.00", "4:100.00:"}},
        {"Amount", " 100 ", {}, {}, {"3::100.50", "4:100.00:"}},
        {"Amount", "1,000", {}, {}, {"5:50.00:", "5::50.00", "3::100.50", "4:100.00:"}},
        {"Amount", "", {}, {}, {"5:50.00:", "5::50.00", "3::100.50", "2::", "4:100.00:"}},
    };
    Show(form);
    for (const auto& c : cases) {
        Ctrl(Qt::Key_F);
        ui().cboFilterFld->SetText(c.field);
        if (c.from.Serial != 0) ui().dtpDateFrom->SetValue(c.from);
        if (c.upTo.Serial != 0) ui().dtpDateUpTo->SetValue(c.upTo);
        ui().cboFilterValue->SetText(c.value);
        ui().txtDtAmt->SetText(c.value);
        Ctrl(Qt::Key_O);
        EXPECT_EQ(Shown(), c.shown) << c.field << " " << c.value;
        EXPECT_FALSE(ui().frFilter->Visible());
    }
    Row(1, Today, "7, 0");
    Ctrl(Qt::Key_R);
    EXPECT_EQ(List().Count(), 6) << "the filter stands";
}

// Without a field the first statement's rows come up, alike ones too.
TEST_F(DayBookTest, OkWithoutAFieldShowsTheWholeYear) {
    for (int day : {Today + 1, Today, Today}) Row(1, day, "5, 0");
    Show(form);
    Ctrl(Qt::Key_O);
    EXPECT_EQ(Whole(), (Lines{"10-May-2001|Cash|1|Journal|5.00||False|40vD1S1",
                              "10-May-2001|Cash|1|Journal|5.00||False|40vD1S2",
                              "11-May-2001|Cash|1|Journal|5.00||False|40vD1S3"}));
}

// The statement breaks and leaves the record set closed, the list as it was. Clear opens it again.
TEST_F(DayBookTest, AQuoteInANameBreaksTheFilter) {
    Row(1, Today, "5, 0");
    books.AddLedger("O''Neil", "Debtors");
    Show(form);
    Ctrl(Qt::Key_F);
    ui().cboFilterFld->SetText("Ledger");
    ui().cboFilterValue->SetListIndex(0);
    script.Box("Run-time error '-2147217900':\n\nSyntax error: a text does not end");
    Ctrl(Qt::Key_O);
    EXPECT_EQ(Shown(), Lines{"1:5.00:"});
    EXPECT_TRUE(ui().frFilter->Visible());
    List().grab();
    script.Box("Run-time error '3704':\n\nOperation is not allowed when the object is closed.");
    Ctrl(Qt::Key_R);
    Ctrl(Qt::Key_C);
    EXPECT_EQ(Shown(), Lines{"1:5.00:"});
}

// Amounts sort as the texts that they are; the date's heading gives the record set's order, read anew.
TEST_F(DayBookTest, HeadingsSort) {
    for (const char* amount : {"100, 0", "20, 0", "3, 0"}) Row(amount[0] - '0', Today, amount);
    Show(form);
    const Lines stored = {"1:100.00:", "2:20.00:", "3:3.00:"}, turned = {"3:3.00:", "2:20.00:", "1:100.00:"};
    ClickHeading(5);
    EXPECT_EQ(Shown(), stored);
    ClickHeading(5);
    EXPECT_EQ(Shown(), turned);
    Ctrl(Qt::Key_R);
    EXPECT_EQ(Shown(), turned);
    ClickHeading(1);
    EXPECT_EQ(Shown(), stored);
    EXPECT_EQ(List().SortOrder(), 0);
    Row(9, Today, "1, 0");
    ClickHeading(1);
    EXPECT_EQ(Shown(), (Lines{"1:100.00:", "2:20.00:", "3:3.00:", "9:1.00:"}));
    EXPECT_EQ(List().SortOrder(), 1);
    ClickHeading(4);
    EXPECT_EQ(List().SortOrder(), 0);
    EXPECT_EQ(Shown().front(), "1:100.00:") << "of equal texts the order stays";
    ClickHeading(5);
    EXPECT_EQ(Shown(), (Lines{"9:1.00:", "1:100.00:", "2:20.00:", "3:3.00:"}));
}

class DayBookDeleteTest : public DayBookTest {
  protected:
    void ExpectQuestion(int answer) {
        ExpectBox("Delete Voucher\r\n\r\nAre you sure ?", qm::vbYesNo + qm::vbInformation, answer);
    }
    static Lines Totals() {
        return Rows("Select Fnncl_Yr, LedDetDRTxnTot, LedDetCRTxnTot From Ledger_Details");
    }
};

// A goods receipt raises no totals, yet they go down with its voucher, in each year.
TEST_F(DayBookDeleteTest, TakesAStockVoucherOutOfTheTotalsOfEveryYear) {
    const int ledger = books.AddLedger("Goods", "Purchase");
    Run("Insert Into Ledger_Details Select Ledger_ID as Ledger_ID, 2002 as Fnncl_Yr, 7 as LedDetDRTxnTot "
        "From Ledger_Details");
    const auto date = basic::Clock::Today();
    ASSERT_EQ(qm::PostVoucherRow(5, date, 0, 0, "", 40, ledger, "Goods"), 5);
    ASSERT_EQ(qm::PostVoucherRow(5, date, 0, 1, "", 40, ledger, "Goods"), 5);
    Row(6, Today, "1, 0");
    Show(form);
    EXPECT_EQ(Shown(), (Lines{"5:40.00:", "5::40.00", "6:1.00:"}));
    ExpectQuestion(qm::vbNo);
    Ctrl(Qt::Key_D);
    EXPECT_EQ(List().Count(), 3);
    ClickCellOf(2);
    ExpectQuestion(qm::vbYes);
    ExpectBox("Voucher Deleted");
    Click(ui().cmdDelete);
    EXPECT_EQ(Shown(), Lines{"6:1.00:"});
    EXPECT_EQ(Rows("Select LedgerTrnNo From tb_Ledger2001"), Lines{"6"});
    EXPECT_EQ(Totals(), (Lines{"2001|-40|-40", "2002|-33|-40"}));
}

TEST_F(DayBookDeleteTest, RefusesWhatTheVoucherScreenAndTheHostsPosted) {
    const int ledger = books.AddLedger("Cash", "Cash In Hand");
    ASSERT_TRUE(books.Host().InsertVoucher(1, Today, "R", "D", "", 40, ledger, "Cash"));
    Show(form);
    ExpectQuestion(qm::vbYes);
    ExpectBox("This voucher is generated by another application !\r\n\r\nCannot Delete");
    Ctrl(Qt::Key_D);
    EXPECT_EQ(Shown(), Lines{"1:40.00:"});
    EXPECT_EQ(Totals(), Lines{"2001|40|Null"});
}

class DayBookDatesTest : public DayBookTest {
  protected:
    void Open(const char* field) {
        Show(form);
        Ctrl(Qt::Key_F);
        ui().cboFilterFld->SetText(field);
    }
    void Leave(forms::DTPicker& picker, basic::Date date) {
        picker.SetFocus();
        picker.SetValue(date);
        Key(form, Qt::Key_Tab);
    }
    void ExpectYearRange() {
        ExpectBox("Please select the date in Financial Year range \r\n\r\n'01-Apr-2001' to '31-Mar-2002'");
    }
    std::string Both() { return Date(*ui().dtpDateFrom) + " " + Date(*ui().dtpDateUpTo); }
};

TEST_F(DayBookDatesTest, OutsideTheYearGoesToItsFirstDayOrTheDayAfterIt) {
    Open("Date Range");
    ExpectYearRange();
    ui().dtpDateFrom->SetFocus();
    Type(form, "31032001\t");
    EXPECT_EQ(Active(form), "dtpDateFrom");
    EXPECT_EQ(Both(), "01/04/2001 10/05/2001");
    Type(form, "15042001\t");
    EXPECT_EQ(Both(), "15/04/2001 10/05/2001");
    Leave(*ui().dtpDateUpTo, basic::MakeDate(2002, 3, 31));
    EXPECT_EQ(Active(form), "cmdOk");
    ExpectYearRange();
    Leave(*ui().dtpDateUpTo, basic::MakeDate(2003, 1, 1));
    EXPECT_EQ(Both(), "15/04/2001 01/04/2002");
    ExpectYearRange();
    Key(form, Qt::Key_Tab);
    EXPECT_EQ(Active(form), "dtpDateUpTo") << "the day that it was given is refused in turn";
    EXPECT_EQ(Both(), "15/04/2001 01/04/2002");
}

TEST_F(DayBookDatesTest, ARangeThatEndsBeforeItBegins) {
    Open("Date Range");
    Leave(*ui().dtpDateFrom, basic::MakeDate(2001, 5, 10));
    EXPECT_EQ(Active(form), "dtpDateUpTo") << "one day is a range";
    ExpectBox("From Date cannot be more than To Date");
    Leave(*ui().dtpDateFrom, basic::MakeDate(2001, 5, 11));
    EXPECT_EQ(Active(form), "dtpDateFrom");
    EXPECT_EQ(Both(), "01/04/2001 31/03/2002");
    Leave(*ui().dtpDateFrom, basic::MakeDate(2001, 6, 1));
    ExpectBox("To Date cannot be less than From Date");
    Leave(*ui().dtpDateUpTo, basic::MakeDate(2001, 5, 31));
    EXPECT_EQ(Active(form), "dtpDateUpTo");
    EXPECT_EQ(Both(), "01/04/2001 31/05/2001");
    ui().cboFilterFld->SetText("Date");
    Leave(*ui().dtpDateFrom, basic::MakeDate(2001, 7, 1));
    EXPECT_EQ(Active(form), "cmdOk") << "no range, no order";
}

TEST_F(DayBookDatesTest, AnAmountMustBeANumber) {
    Row(1, Today, "5, 0");
    Open("Amount");
    for (const char* amount : {"1,000", " ", "-1.5"}) {
        ui().txtDtAmt->SetFocus();
        ui().txtDtAmt->SetText(amount);
        Key(form, Qt::Key_Tab);
        EXPECT_EQ(Active(form), "cmdOk") << amount;
    }
    ui().txtDtAmt->SetFocus();
    ui().txtDtAmt->SetText("ten");
    ExpectBox("Please enter a valid amount");
    Click(ui().cmdOk);
    EXPECT_EQ(Active(form), "txtDtAmt");
    EXPECT_TRUE(ui().frFilter->Visible());
    Run("Update tb_Ledger2001 Set LedgerTxnDate = 37020");
    Ctrl(Qt::Key_O);
    EXPECT_EQ(Shown(), Lines{"1:5.00:"}) << "the key asks nothing, and no number reads 0";
    EXPECT_FALSE(ui().frFilter->Visible());
    EXPECT_EQ(Active(form), "lvwDayBook");
}

}  // namespace
