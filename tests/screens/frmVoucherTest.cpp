// Entering vouchers as a bookkeeper does, and what then stands in the rows and the totals.
#include <gmock/gmock.h>

#include "ScreenFixture.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "vouchers/frmVoucher.h"

using namespace testing;

namespace {

using qm::VoucherColumn;

class VoucherTest : public test::ScreenTest {
  protected:
    VoucherTest() {
        basic::Clock::Set(basic::MakeDate(2001, 4, 30));
        bank = books.AddLedger("Bank of Test", "Bank", 1000);
        cash = books.AddLedger("Cash", "Cash In Hand");
        sales = books.AddLedger("Sales", "Sales", 500, "C");
        rent = books.AddLedger("Rent", "Expenditure(Indirect)");
    }
    ~VoucherTest() override {
        screen.Unload();
        basic::Clock::Set({});
    }

    // Shows the voucher, 0 a new one, and lets `visit` work on it.
    void OnScreen(int trnNo, const std::function<void()>& visit) {
        script.Modal("frmVoucher", [&](forms::Form& form) {
            BringToFront(form);
            visit();
        });
        screen.Load(trnNo);
    }
    forms::VSFlexGrid& Grid() { return *screen.ui().vsVoucher; }
    std::string Cell(int row, int col) { return Grid().TextMatrix(row, col); }
    int LastRow() { return Grid().Rows() - 1; }

    void ChooseType(const char* type) {
        screen.ui().cmbVoucherType->SetText(type);
        Grid().SetFocus();
    }
    // Edits a cell by keys and leaves the edit by Enter.
    void Enter(int row, int col, const char* text) {
        Grid().Select(row, col);
        Grid().SetFocus();
        Grid().Select(row, col);
        Type(screen, text);
        Key(screen, Qt::Key_Return);
    }
    void ChooseLedger(int row, const char* name) {
        Grid().Select(row, VoucherColumn::Ledger);
        Grid().EditCell();
        Type(screen, name);
        Key(screen, Qt::Key_Return);
    }
    // A line by its parts; the amount opens the next one.
    void Line(int row, const char* side, const char* ledger, const char* amount) {
        Enter(row, VoucherColumn::Side, side);
        ChooseLedger(row, ledger);
        if (*amount) Enter(row, side[0] == 'D' ? VoucherColumn::DrAmount : VoucherColumn::CrAmount, amount);
    }
    void Save() { Key(screen, Qt::Key_S, Qt::ControlModifier); }
    void SaveAs(int number) {
        ExpectBox("Voucher Saved with no. '" + std::to_string(number) + "'");
        Save();
    }
    // A receipt of 100 from sales into the bank, posted by the screen.
    void PostReceipt() {
        OnScreen(0, [&] {
            ChooseType("Receipt");
            Line(1, "Dr.", "Bank", "100");
            ChooseLedger(2, "Sales");
            SaveAs(1);
        });
    }
    static std::string Log(const std::string& description) {
        return "Formname: frmVoucher\r\r Description : " + description + "\r Source : ado.Statement";
    }
    static Lines Posted() {
        return Rows(
            "Select LedgerTrnNo, LedgerName, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt, LedgerNarration, "
            "LedgerTrnType, LedgerLedBal, LedgerMcGenerated From tb_Ledger2001");
    }
    std::string Totals(int ledger) {
        return test::FreshBooks::One(
            "Select LedDetDRTxnTot, LedDetCRTxnTot From Ledger_Details Where Ledger_ID = " +
            std::to_string(ledger));
    }

    int bank = 0, cash = 0, sales = 0, rent = 0;
    qm::frmVoucher& screen = forms::Default<qm::frmVoucher>();
};

TEST_F(VoucherTest, IsEnteredByKeysAlone) {
    OnScreen(0, [&] {
        EXPECT_EQ(Active(screen), "cmbVoucherType");
        Type(screen, "R");
        Key(screen, Qt::Key_Tab);  // the number
        while (Active(screen) != "dtpDate") Key(screen, Qt::Key_Tab);
        while (Active(screen) != "vsVoucher") Key(screen, Qt::Key_Tab);
        EXPECT_FALSE(screen.ui().cmbVoucherType->Enabled());
        Type(screen, "D");
        Key(screen, Qt::Key_Tab);
        Type(screen, "Ba");  // the first letter opens the list
        Key(screen, Qt::Key_Return);
        EXPECT_EQ(Cell(1, VoucherColumn::Ledger), "Bank of Test");
        EXPECT_EQ(Cell(1, VoucherColumn::Balance), "Dr");  // nothing was posted to it yet
        EXPECT_EQ(Active(screen), "vsVoucher");
        Key(screen, Qt::Key_Tab);
        Key(screen, Qt::Key_Tab);
        Type(screen, "100");
        Key(screen, Qt::Key_Return);
        EXPECT_EQ(Cell(2, VoucherColumn::Side), "Cr.");
        EXPECT_EQ(Cell(2, VoucherColumn::CrAmount), "100");
        EXPECT_EQ(Grid().Row(), 2);
        Key(screen, Qt::Key_Tab);
        Type(screen, "Sal");
        Key(screen, Qt::Key_Return);
        while (Grid().Col() < VoucherColumn::Particulars) Key(screen, Qt::Key_Tab);
        Type(screen, "by hand");
        Key(screen, Qt::Key_Tab);
        EXPECT_EQ(Active(screen), "cmdSave");
        SaveAs(1);
        EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "<New>");
        EXPECT_EQ(Grid().Rows(), 6);
        EXPECT_EQ(Cell(1, VoucherColumn::Side), "");
    });
    EXPECT_EQ(Posted(), (Lines{"1|Bank of Test|37009|100|0||Receipt|1100Dr|True",
                               "1|Sales|37009|0|100|by hand|Receipt|600Cr|True"}));
    EXPECT_EQ(Totals(bank), "100|0");
    EXPECT_EQ(Totals(sales), "0|100");
}

// The list goes by type and side; Journal leaves nothing out.
TEST_F(VoucherTest, OffersLedgersByTypeAndSide) {
    const Lines banks{"Bank of Test", "Cash"}, all{"Bank of Test", "Cash", "Rent", "Sales"};
    const struct {
        const char *type, *side;
        Lines ledgers;
    } cases[] = {{"Receipt", "Dr.", banks}, {"Receipt", "Cr.", all},  {"Payment", "Dr.", all},
                 {"Payment", "Cr.", banks}, {"Contra", "Dr.", banks}, {"Contra", "Cr.", banks},
                 {"Journal", "Dr.", all},   {"Journal", "Cr.", all},  {"Contra", "", banks},
                 {"Journal", "", all}};
    Run("Update Ledger_Master Set Deleted = True Where Name = 'Rent'");
    for (const auto& [type, side, ledgers] : cases) {
        qm::LedgerList list;
        const forms::ComboList read(list.Fill(qm::LedgerListFor(type, side)));
        Lines names;
        for (int i = 0; i < read.Count(); ++i) names.push_back(read.Shown(i));
        EXPECT_EQ(names, ledgers) << type << side;
    }
    EXPECT_EQ(qm::LedgerListFor("Receipt", ""), qm::LedgerListKind::Stays);
    EXPECT_EQ(qm::LedgerListFor("", "Dr."), qm::LedgerListKind::Stays);
}

// Signs and rounding of the list's balances; two detail rows of one ledger do not run for ever.
TEST_F(VoucherTest, BalancesOfTheListAreRoundedAndDoubledRowsEnd) {
    Run("Update Ledger_Details Set LedDetDRTxnTot = 0.125, LedDetCRTxnTot = Null");
    Run("Update Ledger_Details Set Bal_Type = 'X', Opening_Bal = 1 Where Ledger_ID = " +
        std::to_string(rent));
    Run("Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr, Opening_Bal, Bal_Type, LedDetDRTxnTot) Values (" +
        std::to_string(cash) + ", 2001, 7, 'D', 0)");
    qm::LedgerList list;
    EXPECT_EQ(list.Fill(qm::LedgerListKind::Journal),
              "#" + std::to_string(bank) + "*1;" + std::to_string(bank) + "\tBank of Test\t 1000.12Dr|#" +
                  std::to_string(cash) + ";" + std::to_string(cash) + "\tCash\t .12Dr|#" +
                  std::to_string(cash) + ";" + std::to_string(cash) + "\tCash\t .12Dr|#" +
                  std::to_string(rent) + ";" + std::to_string(rent) + "\tRent\t .88Cr|#" +
                  std::to_string(sales) + ";" + std::to_string(sales) + "\tSales\t 499.88Cr");
    EXPECT_EQ(list.BalanceText(std::to_string(sales)), " 499.88Cr");
}

// The new side is the opposite of the one just left, not the one that is short.
TEST_F(VoucherTest, TheLastLineShowsWhatIsMissing) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Enter(1, VoucherColumn::Side, "Dr.");
        Enter(1, VoucherColumn::Particulars, "told");
        Enter(1, VoucherColumn::DrAmount, "100");
        EXPECT_EQ(Cell(2, VoucherColumn::Particulars), "told");
        Enter(2, VoucherColumn::CrAmount, "60");
        EXPECT_EQ(Cell(3, VoucherColumn::Side), "Dr.");
        EXPECT_EQ(Cell(3, VoucherColumn::DrAmount), "40");
        EXPECT_EQ(Cell(LastRow(), VoucherColumn::DrAmount), "Rs.140.00");
        EXPECT_EQ(Cell(LastRow(), VoucherColumn::CrAmount), "Rs.60.00");
        Enter(3, VoucherColumn::Side, "Cr.");
        EXPECT_EQ(Cell(3, VoucherColumn::CrAmount), "40");
        EXPECT_EQ(Cell(3, VoucherColumn::DrAmount), "");
        Enter(1, VoucherColumn::DrAmount, "1234567.5");
        EXPECT_EQ(Cell(3, VoucherColumn::CrAmount), "1234507.5");
        EXPECT_EQ(Cell(LastRow(), VoucherColumn::CrAmount), "Rs.1,234,567.50");
        Enter(3, VoucherColumn::CrAmount, "1234507.5");  // in balance, and a new line all the same
        EXPECT_EQ(Cell(4, VoucherColumn::DrAmount), "0");
        // Below the lines the cursor cannot go.
        Grid().Select(5, VoucherColumn::Side);
        EXPECT_EQ(Grid().Row(), 4);
        // Ctrl+S on it: the empty line has no ledger.
        ExpectBox("Please select a ledger to be debited");
        Save();
    });
}

TEST_F(VoucherTest, CellsTakeOnlyWhatTheyMay) {
    OnScreen(0, [&] {
        Grid().SetFocus();
        ExpectBox("Please select a voucher type");
        Grid().EditCell();
        EXPECT_EQ(Active(screen), "cmbVoucherType");
        ChooseType("Payment");
        for (const int col : {VoucherColumn::Ledger, VoucherColumn::Balance, VoucherColumn::DrAmount,
                              VoucherColumn::CrAmount, VoucherColumn::Particulars}) {
            Grid().Select(1, col);
            Grid().EditCell();
            EXPECT_FALSE(Grid().Editing()) << col;
        }
        Enter(1, VoucherColumn::Side, "Cr.");
        Grid().Select(1, VoucherColumn::DrAmount);
        Grid().EditCell();
        EXPECT_FALSE(Grid().Editing());
        Enter(1, VoucherColumn::CrAmount, "-12x3456789012");
        EXPECT_EQ(Cell(1, VoucherColumn::CrAmount), "123456789");
        Grid().Select(1, VoucherColumn::CrAmount);
        Type(screen, "1.2.3");
        ExpectBox("Please enter a valid numeric integer");
        Key(screen, Qt::Key_Return);
        Key(screen, Qt::Key_Escape);
        Grid().Select(1, VoucherColumn::Particulars);
        Type(screen, std::string(120, 'n').c_str());
        Key(screen, Qt::Key_Return);
        EXPECT_EQ(Cell(1, VoucherColumn::Particulars), std::string(99, 'n'));
        Grid().Select(1, VoucherColumn::Particulars);
        Key(screen, Qt::Key_Delete);
        EXPECT_EQ(Cell(1, VoucherColumn::Particulars), "");
        // Deleting the side asks, and takes the line.
        Grid().Select(1, VoucherColumn::Side);
        ExpectBox("This will delete the entire entry !!!\r\n\r\nAre you sure ?",
                  qm::vbYesNo + qm::vbInformation, qm::vbNo);
        Key(screen, Qt::Key_Delete);
        EXPECT_EQ(Cell(1, VoucherColumn::Side), "Cr.");
    });
}

// The line above counts, and no other.
TEST_F(VoucherTest, TheOtherSideOfALineTakesAnotherLedger) {
    const std::string box =
        "Debit & Credit entries can't be posted in same ledger\r\n\r\nPlease select another one";
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Rent", "100");
        ExpectBox(box);
        ChooseLedger(2, "Rent");
        Key(screen, Qt::Key_Escape);
        EXPECT_EQ(Cell(2, VoucherColumn::Ledger), "");
        ChooseLedger(2, "Cash");
        Enter(2, VoucherColumn::CrAmount, "60");
        Enter(3, VoucherColumn::Side, "Cr.");
        ChooseLedger(3, "Rent");
        EXPECT_EQ(Cell(3, VoucherColumn::Ledger), "Rent");
    });
}

TEST_F(VoucherTest, SaveTestsInOrder) {
    OnScreen(0, [&] {
        ExpectBox("Please select a voucher type");
        Save();
        ChooseType("Journal");
        screen.ui().dtpDate->SetValue(basic::MakeDate(2001, 3, 31));
        ExpectBox("Please select the date in Financial Year range \r\n\r\n'01-Apr-2000' to '31-Mar-2001'");
        Save();
        screen.ui().dtpDate->SetValue(basic::MakeDate(2002, 3, 31));
        ExpectBox("Please enter atleast one transaction to save the voucher");
        Save();
        Enter(1, VoucherColumn::Side, "Dr.");
        ExpectBox("Please select a ledger to be debited");
        Save();
        Key(screen, Qt::Key_Escape);
        ChooseLedger(1, "Rent");
        ExpectBox("Please enter the debit amount");
        Save();
        Enter(1, VoucherColumn::DrAmount, "10");
        Enter(2, VoucherColumn::CrAmount, "4");
        ExpectBox("Mismatch between Credit & Debit Balance\r\n\r\nPlease recheck your entries");
        Save();
    });
    EXPECT_EQ(Posted(), Lines{});
}

TEST_F(VoucherTest, AnUnchangedVoucherIsSavedWithoutWriting) {
    PostReceipt();
    const Lines before = Posted();
    OnScreen(1, [&] {
        EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "1");
        EXPECT_EQ(screen.ui().cmbVoucherType->Text(), "Receipt");
        EXPECT_EQ(Cell(1, VoucherColumn::Ledger), "Bank of Test");
        EXPECT_EQ(Cell(2, VoucherColumn::Side), "Cr.");
        EXPECT_EQ(Cell(3, VoucherColumn::Side), "");  // the empty line after the loaded ones
        SaveAs(1);
    });
    EXPECT_EQ(Posted(), before);
    EXPECT_EQ(Totals(bank), "100|0");
}

// The row takes the new amount, the total stays; the row's balance is opening plus this line alone.
TEST_F(VoucherTest, AnEditReplacesTheRowAndLeavesTheTotal) {
    PostReceipt();
    OnScreen(1, [&] {
        Enter(1, VoucherColumn::DrAmount, "150");
        Enter(2, VoucherColumn::CrAmount, "150");
        SaveAs(1);
    });
    EXPECT_EQ(Posted(), (Lines{"1|Bank of Test|37009|150|0||Receipt|1150Dr|True",
                               "1|Sales|37009|0|150||Receipt|650Cr|True"}));
    EXPECT_EQ(Totals(bank), "100|0");
    OnScreen(1, [&] {  // another ledger: the new amount goes from the old one to the new one
        ChooseLedger(1, "Cash");
        SaveAs(1);
    });
    EXPECT_EQ(Totals(bank), "-50|0");
    EXPECT_EQ(Totals(cash), "150|0");
}

TEST_F(VoucherTest, AChangedDateFailsTheFirstChangedLine) {
    PostReceipt();
    const Lines before = Posted();
    OnScreen(1, [&] {
        screen.ui().dtpDate->SetValue(basic::MakeDate(2001, 5, 1));
        Enter(1, VoucherColumn::Particulars, "later");
        ExpectBox("Cannot save Voucher");  // a count of 0 is not logged
        Save();
        EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "1");
    });
    EXPECT_EQ(Posted(), before);
    EXPECT_EQ(Totals(bank), "100|0");
    EXPECT_EQ(Rows("Select * From tblError"), Lines{});
}

// A removed line is found by the name on it: a second ledger of that name fails it.
TEST_F(VoucherTest, ARemovedLineIsReversedAtSave) {
    PostReceipt();
    const auto remove = [&] {
        Grid().SetFocus();
        for (const int row : {1, 2}) {
            Grid().Select(row, VoucherColumn::Side);
            ExpectBox("This will delete the entire entry !!!\r\n\r\nAre you sure ?",
                      qm::vbYesNo + qm::vbInformation, qm::vbYes);
            Key(screen, Qt::Key_Delete);
        }
        EXPECT_EQ(Cell(LastRow(), VoucherColumn::DrAmount), "");
        EXPECT_EQ(Posted().size(), 2U);
    };
    Run("Insert Into Ledger_Master (Ledger_ID, Name) Values (9999, 'Bank of Test')");
    OnScreen(1, [&] {
        remove();
        ExpectBox("Cannot save Voucher");
        ExpectBox(Log("A subselect gave more than one row where one value is needed."), 0);
        Save();
    });
    EXPECT_EQ(Posted().size(), 2U);
    Run("Delete From Ledger_Master Where Ledger_ID = 9999");
    OnScreen(1, [&] {
        remove();
        SaveAs(1);
    });
    EXPECT_EQ(Posted(), Lines{});
    EXPECT_EQ(Totals(bank), "0|0");
    EXPECT_EQ(Totals(sales), "0|0");
}

// Lines are committed one by one: two stand, and the second Save takes a new number.
TEST_F(VoucherTest, TheThirdLineOfFourFails) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Rent", "100");
        Line(2, "Cr.", "Cash", "60");
        Line(3, "Cr.", "Sales", "30");
        Line(4, "Cr.", "Bank", "");
        EXPECT_EQ(Cell(4, VoucherColumn::CrAmount), "10");
        Enter(3, VoucherColumn::Particulars, "3\" pipe");
        ExpectBox("Cannot save Voucher");
        ExpectBox(Log("Syntax error: a text does not end"), 0);
        Save();
        EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "<New>");
        EXPECT_EQ(Rows("Select LedgerTrnNo, LedgerName From tb_Ledger2001"), (Lines{"1|Rent", "1|Cash"}));
        EXPECT_EQ(Totals(cash), "0|60");
        EXPECT_EQ(Totals(sales), "Null|Null");
        Enter(3, VoucherColumn::Particulars, "pipe");
        SaveAs(2);
    });
    EXPECT_EQ(Rows("Select LedgerTrnNo, LedgerName From tb_Ledger2001"),
              (Lines{"1|Rent", "1|Cash", "2|Rent", "2|Cash", "2|Sales", "2|Bank of Test"}));
}

// What the screen posts and what a host posts differ in the balance (after, before) and in the total of the
// other side (0, Null).
TEST_F(VoucherTest, TheHostPostsTheSameButForBalanceAndTheOtherTotal) {
    PostReceipt();
    const Lines ofScreen = Posted();
    const std::string bankOfScreen = Totals(bank);
    Run("Delete From tb_Ledger2001");
    Run("Update Ledger_Details Set LedDetDRTxnTot = Null, LedDetCRTxnTot = Null");
    EXPECT_TRUE(books.Host().InsertVoucher(1, 37009, "R", "D", "", 100, bank, "Bank of Test"));
    EXPECT_EQ(ofScreen[0], "1|Bank of Test|37009|100|0||Receipt|1100Dr|True");
    EXPECT_EQ(Posted(), Lines{"1|Bank of Test|37009|100|0||Receipt|1000Dr|True"});
    EXPECT_EQ(bankOfScreen, "100|0");
    EXPECT_EQ(Totals(bank), "100|Null");
}

TEST_F(VoucherTest, TheWorkingBalanceRunsOnOverALedgerOfNeitherSide) {
    Run("Update Ledger_Details Set Bal_Type = Null Where Ledger_ID = " + std::to_string(sales));
    PostReceipt();
    EXPECT_THAT(Posted()[1], HasSubstr("|1000Dr|"));  // 1100 of the bank's line, less 100
}

// The caller hears of the end only while it is loaded.
TEST_F(VoucherTest, TheCallingFormIsRefreshedWhileItIsLoaded) {
    class Caller : public qm::frmVoucher {
    } caller;
    int refreshed = 0;
    screen.SetCallingForm(caller, [&] { ++refreshed; });
    OnScreen(0, [] {});
    EXPECT_EQ(refreshed, 0);
    caller.EnsureLoaded();
    OnScreen(0, [] {});
    EXPECT_EQ(refreshed, 1);
    caller.Unload();
    screen.SetCallingForm(screen, [] {});
}

}  // namespace
