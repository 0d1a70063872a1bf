// What Save leaves in the rows, in the totals and in the log.
#include <gmock/gmock.h>

#include "tests/vouchers/VoucherScreens.h"

using namespace testing;

namespace {

using qm::VoucherColumn;

class VoucherPostingTest : public test::VoucherScreenTest {};

// Delete empties a cell, which is no edit: the line does not count as changed.
TEST_F(VoucherPostingTest, AnUnchangedVoucherIsSavedWithoutWriting) {
    PostReceipt();
    Run("Update tb_Ledger2001 Set LedgerNarration = 'told'");
    const Lines before = Posted();
    OnScreen(1, [&] {
        EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "1");
        EXPECT_EQ(screen.ui().cmbVoucherType->Text(), "Receipt");
        EXPECT_EQ(Cell(1, VoucherColumn::Ledger), "Bank of Test");
        EXPECT_EQ(Cell(2, VoucherColumn::Side), "Cr.");
        EXPECT_EQ(Cell(3, VoucherColumn::Side), "");  // the empty line after the loaded ones
        Grid().SetFocus();
        Grid().Select(1, VoucherColumn::Particulars);
        Key(screen, Qt::Key_Delete);
        EXPECT_EQ(Cell(1, VoucherColumn::Particulars), "");
        SaveAs(1);
    });
    EXPECT_EQ(Posted(), before);
    EXPECT_EQ(Totals(bank), "100|0");
}

// The row takes the new amount, the total stays; the row's balance is opening plus this line alone.
TEST_F(VoucherPostingTest, AnEditReplacesTheRowAndLeavesTheTotal) {
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

// The row is looked for by what the screen shows now; where no line was changed, none is looked for.
TEST_F(VoucherPostingTest, AChangedDateOrTypeFailsTheFirstChangedLine) {
    PostReceipt();
    const Lines before = Posted();
    const std::function<void()> changes[] = {
        [&] { screen.ui().dtpDate->SetValue(basic::MakeDate(2001, 5, 1)); },
        [&] { screen.ui().cmbVoucherType->SetText("Journal"); }};
    for (const auto& change : changes)
        OnScreen(1, [&] {
            change();
            Enter(1, VoucherColumn::Particulars, "later");
            ExpectBox("Cannot save Voucher");  // a count of 0 is not logged
            Save();
            EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "1");
            Key(screen, Qt::Key_Z, Qt::ControlModifier);
            change();
            SaveAs(1);
        });
    EXPECT_EQ(Posted(), before);
    EXPECT_EQ(Totals(bank), "100|0");
    EXPECT_EQ(Rows("Select * From tblError"), Lines{});
}

// A removed line is found by the name on it: a second ledger of that name fails it. A total that is Null
// stays so.
TEST_F(VoucherPostingTest, ARemovedLineIsReversedAtSave) {
    PostReceipt();
    const auto remove = [&] {
        Grid().SetFocus();
        for (const int row : {1, 2}) {
            Grid().Select(row, VoucherColumn::Side);
            ExpectRemoval(qm::vbYes);
            Key(screen, Qt::Key_Delete);
            Type(screen, "C");  // the cursor stands on a line that is gone
        }
        EXPECT_EQ(Cell(1, VoucherColumn::Side), "Dr.");
        EXPECT_EQ(Cell(LastRow(), VoucherColumn::DrAmount), "");
        EXPECT_EQ(Posted().size(), 2U);
    };
    Run("Insert Into Ledger_Master (Ledger_ID, Name) Values (9999, 'Bank of Test')");
    OnScreen(1, [&] {
        remove();
        ExpectBox("Cannot save Voucher");
        ExpectLogged("frmVoucher", "A subselect gave more than one row where one value is needed.",
                     "ado.Statement");
        Save();
    });
    EXPECT_EQ(Posted().size(), 2U);
    Run("Delete From Ledger_Master Where Ledger_ID = 9999");
    Run("Update Ledger_Details Set LedDetCRTxnTot = Null Where Ledger_ID = " + std::to_string(sales));
    OnScreen(1, [&] {
        remove();
        SaveAs(1);
    });
    EXPECT_EQ(Posted(), Lines{});
    EXPECT_EQ(Totals(bank), "0|0");
    EXPECT_EQ(Totals(sales), "0|Null");
}

// The name on the line is the new ledger's, and no saved row bears it.
TEST_F(VoucherPostingTest, ALineThatWasMovedCannotBeRemoved) {
    PostReceipt();
    const Lines before = Posted();
    OnScreen(1, [&] {
        ChooseLedger(1, "Cash");
        for (const int row : {1, 2}) {
            Grid().Select(row, VoucherColumn::Side);
            ExpectRemoval(qm::vbYes);
            Key(screen, Qt::Key_Delete);
        }
        ExpectBox("Cannot save Voucher");
        Save();
    });
    EXPECT_EQ(Posted(), before);
    EXPECT_EQ(Totals(bank) + " " + Totals(cash), "100|0 Null|Null");
}

// The side now on the line counts for what is taken away too, so switching sides leaves the old total.
TEST_F(VoucherPostingTest, SwitchedSidesKeepTheTotals) {
    PostReceipt();
    OnScreen(1, [&] {
        Enter(1, VoucherColumn::Side, "Cr.");
        Enter(2, VoucherColumn::Side, "Dr.");
        SaveAs(1);
    });
    EXPECT_EQ(Posted(), (Lines{"1|Bank of Test|37009|0|100||Receipt|900Dr|True",
                               "1|Sales|37009|100|0||Receipt|400Cr|True"}));
    EXPECT_EQ(Totals(bank) + " " + Totals(sales), "100|0 0|100");
}

// Lines are committed one by one: two stand, and the second Save takes a new number.
TEST_F(VoucherPostingTest, TheThirdLineOfFourFails) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Rent", "100");
        Line(2, "Cr.", "Cash", "60");
        Line(3, "Cr.", "Sales", "30");
        Line(4, "Cr.", "Bank", "");
        EXPECT_EQ(Cell(4, VoucherColumn::CrAmount), "10");
        Enter(3, VoucherColumn::Particulars, "3\" pipe");
        ExpectBox("Cannot save Voucher");
        ExpectLogged("frmVoucher", "Syntax error: a text does not end", "ado.Statement");
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

// They are found by the ledger alone: an edit of the one takes the other's row along, but not its amount.
TEST_F(VoucherPostingTest, OfTwoLinesOnOneLedgerAnEditLeavesOne) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Rent", "100");
        Line(2, "Cr.", "Cash", "60");
        Enter(3, VoucherColumn::Side, "Cr.");
        ChooseLedger(3, "Cash");
        SaveAs(1);
    });
    EXPECT_EQ(Totals(cash), "0|100");
    OnScreen(1, [&] {
        Enter(2, VoucherColumn::Particulars, "first");
        SaveAs(1);
    });
    EXPECT_EQ(Rows("Select LedgerName, LedgerCrAmt From tb_Ledger2001"), (Lines{"Rent|0", "Cash|60"}));
    EXPECT_EQ(Totals(cash), "0|100");
}

// Numbers go by the highest: one that a deleted voucher left free below it stays free.
TEST_F(VoucherPostingTest, OnlyTheHighestNumberIsUsedAgain) {
    for (const int number : {1, 2, 3}) PostReceipt(number);
    for (const int deleted : {2, 3}) {
        EXPECT_TRUE(books.Host().DeleteVoucher(deleted));
        PostReceipt(deleted == 2 ? 4 : 5);
    }
    EXPECT_TRUE(books.Host().DeleteVoucher(5));
    PostReceipt(5);
    EXPECT_EQ(Rows("Select Distinct LedgerTrnNo From tb_Ledger2001"), (Lines{"1", "4", "5"}));
}

// What the screen posts and what a host posts differ in the balance (after, before) and in the total of the
// other side (0, Null).
TEST_F(VoucherPostingTest, TheHostPostsTheSameButForBalanceAndTheOtherTotal) {
    const auto row = [](const char* ledger, const char* amounts, const char* balance) {
        return std::string("1|") + ledger + "|37009|" + amounts + "||Receipt|" + balance + "|True";
    };
    PostReceipt();
    EXPECT_EQ(Posted(), (Lines{row("Bank of Test", "100|0", "1100Dr"), row("Sales", "0|100", "600Cr")}));
    EXPECT_EQ(Totals(bank) + " " + Totals(sales), "100|0 0|100");

    Run("Delete From tb_Ledger2001");
    Run("Update Ledger_Details Set LedDetDRTxnTot = Null, LedDetCRTxnTot = Null");
    EXPECT_TRUE(books.Host().InsertVoucher(1, 37009, "R", "D", "", 100, bank, "Bank of Test"));
    EXPECT_TRUE(books.Host().InsertVoucher(1, 37009, "R", "C", "", 100, sales, "Sales"));
    EXPECT_EQ(Posted(), (Lines{row("Bank of Test", "100|0", "1000Dr"), row("Sales", "0|100", "500Cr")}));
    EXPECT_EQ(Totals(bank) + " " + Totals(sales), "100|Null Null|100");
}

TEST_F(VoucherPostingTest, TheWorkingBalanceRunsOnOverALedgerOfNeitherSide) {
    Run("Update Ledger_Details Set Bal_Type = Null Where Ledger_ID = " + std::to_string(sales));
    PostReceipt();
    EXPECT_THAT(Posted()[1], HasSubstr("|1000Dr|"));  // 1100 of the bank's line, less 100
}

}  // namespace
