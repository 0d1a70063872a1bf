#pragma once

#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "tests/screens/ScreenFixture.h"
#include "vouchers/frmVoucher.h"

namespace test {

using qm::VoucherColumn;

// The voucher screen on the last day of April 2001, over four ledgers that nothing was posted to.
class VoucherScreenTest : public test::ScreenTest {
  protected:
    VoucherScreenTest() {
        basic::Clock::Set(basic::MakeDate(2001, 4, 30));
        bank = books.AddLedger("Bank of Test", "Bank", 1000);
        cash = books.AddLedger("Cash", "Cash In Hand");
        sales = books.AddLedger("Sales", "Sales", 500, "C");
        rent = books.AddLedger("Rent", "Expenditure(Indirect)");
    }
    ~VoucherScreenTest() override {
        screen.Unload();
        basic::Clock::Set({});
    }

    // Shows the voucher, 0 a new one, and lets `visit` work on it.
    void OnScreen(int trnNo, const std::function<void()>& visit) {
        ExpectForm("frmVoucher", visit);
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
    void PostReceipt(int number = 1) {
        OnScreen(0, [&] {
            ChooseType("Receipt");
            Line(1, "Dr.", "Bank", "100");
            EXPECT_FALSE(screen.ui().cmbVoucherType->Enabled());
            ChooseLedger(2, "Sales");
            SaveAs(number);
            EXPECT_EQ(screen.ui().txtVoucherNo->Text() + Cell(1, VoucherColumn::Side), "<New>");
            EXPECT_EQ(Grid().Rows(), 6);
        });
    }
    void ExpectRemoval(int answer) { ExpectQuestion("This will delete the entire entry !!!", answer); }
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

}  // namespace test
