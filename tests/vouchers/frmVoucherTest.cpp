// Entering vouchers as a bookkeeper does: the grid, its list of ledgers, its tests.
#include <QClipboard>
#include <memory>

#include <gmock/gmock.h>

#include "tests/vouchers/VoucherScreens.h"

using namespace testing;

namespace {

using qm::VoucherColumn;

constexpr const char* SameLedger =
    "Debit & Credit entries can't be posted in same ledger\r\n\r\nPlease select another one";

class VoucherTest : public test::VoucherScreenTest {};

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
    EXPECT_EQ(list.LedgerBalanceText(std::to_string(sales)), " 499.88Cr");
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
        Type(screen, "7");
        QGuiApplication::clipboard()->setText("Rs -1,250 only");
        Key(screen, Qt::Key_V, Qt::ControlModifier);  // of a pasted text too only the digits are taken
        Key(screen, Qt::Key_Return);
        EXPECT_EQ(Cell(1, VoucherColumn::CrAmount), "71250");
        Grid().Select(1, VoucherColumn::CrAmount);
        Type(screen, "1.2.3");
        ExpectBox("Please enter a valid numeric integer");
        Key(screen, Qt::Key_Return);
        Key(screen, Qt::Key_Escape);
        Grid().Select(1, VoucherColumn::Particulars);
        Type(screen, std::string(120, 'n').c_str());
        Key(screen, Qt::Key_Return);
        EXPECT_EQ(Cell(1, VoucherColumn::Particulars), std::string(99, 'n'));
    });
}

// Delete empties by column; a side takes its line with it, if the user says so.
TEST_F(VoucherTest, DeleteGoesByColumn) {
    const auto erase = [&](int row, int col) {
        Grid().Select(row, col);
        Key(screen, Qt::Key_Delete);
    };
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Bank", "100");
        ChooseLedger(2, "Sales");
        Enter(2, VoucherColumn::Particulars, "told");
        erase(2, VoucherColumn::Balance);
        EXPECT_EQ(Cell(2, VoucherColumn::Balance), "Dr");
        erase(2, VoucherColumn::Ledger);
        EXPECT_EQ(Cell(2, VoucherColumn::Ledger) + Cell(2, VoucherColumn::Balance), "");
        erase(2, VoucherColumn::Particulars);
        EXPECT_EQ(Cell(2, VoucherColumn::Particulars), "");
        erase(2, VoucherColumn::CrAmount);
        EXPECT_EQ(Cell(2, VoucherColumn::CrAmount) + Cell(LastRow(), VoucherColumn::CrAmount), "");
        ExpectRemoval(qm::vbNo);
        erase(2, VoucherColumn::Side);
        EXPECT_EQ(Cell(2, VoucherColumn::Side), "Cr.");
        ExpectRemoval(qm::vbYes);
        erase(1, VoucherColumn::Side);
        EXPECT_EQ(Cell(1, VoucherColumn::Side), "Cr.");  // the second line has moved up
        EXPECT_EQ(Grid().Rows(), 6);
        EXPECT_EQ(Cell(LastRow(), VoucherColumn::DrAmount), "");
        ExpectRemoval(qm::vbYes);
        erase(1, VoucherColumn::Side);
        ExpectBox("Please enter atleast one transaction to save the voucher");
        Save();  // no line is left at all
    });
}

// Whatever cell the cursor stood on: with one line it starts at the side, with more it stays.
TEST_F(VoucherTest, TheGridIsEnteredAtTheSideOfItsOnlyLine) {
    const auto leaveAndEnter = [&] {
        screen.ui().dtpDate->SetFocus();
        Grid().SetFocus();
        return Grid().Col();
    };
    OnScreen(0, [&] {
        ChooseType("Journal");
        Enter(1, VoucherColumn::Side, "Dr.");
        Grid().Select(1, VoucherColumn::Particulars);
        EXPECT_EQ(leaveAndEnter(), VoucherColumn::Side);
        Enter(1, VoucherColumn::DrAmount, "5");
        Grid().Select(2, VoucherColumn::Particulars);
        EXPECT_EQ(leaveAndEnter(), VoucherColumn::Particulars);
    });
}

// Esc closes the list, whoever dropped it, and Shift+Tab goes one cell back, also where Tab goes on to Save.
TEST_F(VoucherTest, TheKeyboardStaysInTheGrid) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Rent", "100");
        ExpectBox("Please select a ledger to be credited");
        Save();
        Key(screen, Qt::Key_Escape);
        EXPECT_FALSE(screen.ui().vsCombo->Visible());
        EXPECT_TRUE(Grid().hasFocus());
        Key(screen, Qt::Key_Up);
        EXPECT_EQ(Grid().Row(), 1);
        Key(screen, Qt::Key_Delete);
        EXPECT_EQ(Cell(1, VoucherColumn::Ledger), "");
        Grid().Select(2, VoucherColumn::Particulars);
        Type(screen, "told");
        Key(screen, Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(Active(screen), "vsVoucher");
        EXPECT_EQ(Grid().Col(), VoucherColumn::CrAmount);
        Key(screen, Qt::Key_Tab);
        Key(screen, Qt::Key_Tab);
        EXPECT_EQ(Active(screen), "cmdSave");
    });
}

// A ledger that another program adds is offered from the next cell on.
TEST_F(VoucherTest, EveryMoveReadsTheLedgersAgain) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Enter(1, VoucherColumn::Side, "Dr.");
        books.AddLedger("Wages", "Expenditure(Direct)", 70);
        Run("Update Ledger_Details Set LedDetDRTxnTot = 5.005");
        Grid().Select(1, VoucherColumn::Particulars);
        ChooseLedger(1, "Wag");
        EXPECT_EQ(Cell(1, VoucherColumn::Ledger), "Wages");
        EXPECT_EQ(Cell(1, VoucherColumn::Balance), " 75Dr");  // half to even
    });
}

TEST_F(VoucherTest, UndoReloadsAndNewEmpties) {
    PostReceipt();
    OnScreen(1, [&] {
        Enter(1, VoucherColumn::DrAmount, "7");
        Grid().Select(1, VoucherColumn::Particulars);
        Type(screen, "half typed");
        Key(screen, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Cell(1, VoucherColumn::DrAmount) + Cell(1, VoucherColumn::Particulars), "100");
        EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "1");
        EXPECT_TRUE(screen.ui().cmbVoucherType->Enabled());
        SaveAs(1);  // nothing is marked as changed: nothing is written
        EXPECT_EQ(Totals(bank), "100|0");
        Key(screen, Qt::Key_N, Qt::ControlModifier);
        EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "<New>");
        EXPECT_EQ(screen.ui().cmbVoucherType->Text(), "Receipt");
        EXPECT_EQ(Grid().Rows(), 6);
        EXPECT_EQ(Active(screen), "cmbVoucherType");
        Key(screen, Qt::Key_X, Qt::ControlModifier);
        EXPECT_FALSE(screen.Loaded());
    });
    OnScreen(99, [&] {  // a number without rows
        EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "99");
        EXPECT_EQ(Grid().Rows(), 6);
    });
}

// The line above counts, and no other.
TEST_F(VoucherTest, TheOtherSideOfALineTakesAnotherLedger) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Rent", "100");
        ExpectBox(SameLedger);
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

// The totals are compared as shown, read whole: 1,999 is not 1.
TEST_F(VoucherTest, TheTotalsAreComparedWholeAndTheCreditSideIsTested) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Rent", "1999");
        ExpectBox("Please select a ledger to be credited");
        Save();
        Key(screen, Qt::Key_Escape);
        ChooseLedger(2, "Cash");
        Grid().SetFocus();
        Grid().Select(2, VoucherColumn::CrAmount);
        Key(screen, Qt::Key_Delete);
        Grid().SetTextMatrix(LastRow(), VoucherColumn::CrAmount, "Rs.1,999.00");
        ExpectBox("Please enter the credit amount");
        Save();
        Enter(2, VoucherColumn::CrAmount, "1000");
        ExpectBox("Mismatch between Credit & Debit Balance\r\n\r\nPlease recheck your entries");
        Save();
    });
    EXPECT_EQ(Posted(), Lines{});
}

// Less than half a paisa is not seen, and so it is saved.
TEST_F(VoucherTest, TotalsThatReadAlikeAreSaved) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Rent", "100.004");
        Line(2, "Cr.", "Cash", "100");
        ExpectRemoval(qm::vbYes);
        Grid().Select(3, VoucherColumn::Side);
        Key(screen, Qt::Key_Delete);
        SaveAs(1);
    });
    EXPECT_EQ(Rows("Select LedgerDrAmt, LedgerCrAmt From tb_Ledger2001"), (Lines{"100.004|0", "0|100"}));
}

// What was typed into an open cell or list is taken first; what they refuse stops the Save.
TEST_F(VoucherTest, AnOpenEditIsFinishedBeforeTheSave) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Rent", "100");
        Grid().Select(1, VoucherColumn::DrAmount);
        Type(screen, "1.2.3");
        ExpectBox("Please enter a valid numeric integer");
        Save();
        Key(screen, Qt::Key_Escape);
        Grid().Select(2, VoucherColumn::Ledger);
        Type(screen, "Ren");
        ExpectBox(SameLedger);
        Save();
        EXPECT_EQ(Posted(), Lines{});
        Key(screen, Qt::Key_Escape);
        Grid().EditCell();
        Type(screen, "Cas");
        SaveAs(1);
    });
    OnScreen(1, [&] {
        Grid().SetFocus();
        Grid().Select(2, VoucherColumn::Particulars);
        Type(screen, "late");
        SaveAs(1);
    });
    EXPECT_EQ(Rows("Select LedgerName, LedgerCrAmt, LedgerNarration From tb_Ledger2001"),
              (Lines{"Rent|0|", "Cash|100|late"}));
}

// A count of 0 is no error of its own: the box, and nothing in the log.
TEST_F(VoucherTest, ALedgerWithoutARowOfTheYearFailsItsLine) {
    Run("Update Ledger_Details Set Opening_Bal = 100 Where Ledger_ID = " + std::to_string(sales));
    OnScreen(0, [&] {
        ChooseType("Receipt");
        Line(1, "Dr.", "Bank", "100");
        ChooseLedger(2, "Sales");
        Run("Delete From Ledger_Details Where Ledger_ID = " + std::to_string(sales));
        ExpectBox("Cannot save Voucher");
        Save();
        EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "<New>");
        Key(screen, Qt::Key_Z, Qt::ControlModifier);  // the number that was taken: the line that stands
        EXPECT_EQ(screen.ui().txtVoucherNo->Text(), "1");
        EXPECT_EQ(Cell(1, VoucherColumn::Ledger) + Cell(2, VoucherColumn::Ledger), "Bank of Test");
    });
    EXPECT_EQ(Rows("Select LedgerName From tb_Ledger2001"), Lines{"Bank of Test"});
    EXPECT_EQ(Rows("Select * From tblError"), Lines{});
}

TEST_F(VoucherTest, BalanceTextsBearTheMagnitudeAndTheSide) {
    OnScreen(0, [&] {
        ChooseType("Journal");
        Line(1, "Dr.", "Sales", "500");  // 500 on the credit side before
        Line(2, "Cr.", "Rent", "250.5");
        Enter(3, VoucherColumn::Side, "Cr.");
        ChooseLedger(3, "Bank");
        SaveAs(1);
    });
    EXPECT_EQ(Rows("Select LedgerLedBal From tb_Ledger2001"), (Lines{"0Dr", "250.5Cr", "750.5Dr"}));
}

// Both amounts 0 reads "Dr.", both filled "Cr."; a type word that is not in the list leaves no list of
// ledgers.
TEST_F(VoucherTest, OddRowsAreShownAsTheyStand) {
    for (const char* amounts : {"0, 0", "Null, Null", "3, 4"})
        Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerTrnType, "
            "LedgerDrAmt, LedgerCrAmt) Values (7, 17, 'Old', 37000, 'Memo', " +
            std::string(amounts) + ")");
    OnScreen(7, [&] {
        Lines sides;
        for (int row = 1; row <= 3; ++row)
            sides.push_back(Cell(row, VoucherColumn::Side) + Cell(row, VoucherColumn::DrAmount) + "/" +
                            Cell(row, VoucherColumn::CrAmount));
        EXPECT_EQ(sides, (Lines{"Dr./", "Dr./", "Cr.3/4"}));
        EXPECT_EQ(screen.ui().cmbVoucherType->Text(), "Memo");
        ChooseLedger(1, "D");
        EXPECT_EQ(Cell(1, VoucherColumn::Ledger), "Old");
    });
}

// The caller hears of the end only while it is loaded.
TEST_F(VoucherTest, TheCallingFormIsRefreshedWhileItIsLoaded) {
    auto caller = std::make_unique<qm::frmVoucher>();
    int refreshed = 0;
    screen.SetCallingForm(*caller, [&] { ++refreshed; });
    OnScreen(0, [] {});
    EXPECT_EQ(refreshed, 0);
    caller->EnsureLoaded();
    OnScreen(0, [] {});
    EXPECT_EQ(refreshed, 1);
    caller.reset();
    OnScreen(0, [] {});
    EXPECT_EQ(refreshed, 1) << "nor when it is no more";
}

}  // namespace
