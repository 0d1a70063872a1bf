#pragma once

#include "core/FDBCode.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "tests/inventory/StockScreens.h"

// What the tests of the two receipt screens share: today is 30-Apr-2001, two items, a supplier, and the boxes
// of a bill, which both screens call by the same names.
class ReceiptScreensTest : public StockScreensTest {
  protected:
    ReceiptScreensTest() {
        basic::Clock::Set(basic::MakeDate(2001, 4, 30));
        AddItem(1, "Coal", "100");
        AddItem(2, "Sand", "50", "0", "0", "0");
    }
    ~ReceiptScreensTest() override { basic::Clock::Set({}); }

    static void Ctrl(forms::Form& form, Qt::Key key) { Key(form, key, Qt::ControlModifier); }
    static Lines Texts(std::initializer_list<const forms::TextBox*> boxes) {
        Lines texts;
        for (const forms::TextBox* box : boxes) texts.push_back(box->Text());
        return texts;
    }
    // Amount after tax, total, net amount.
    template <class Ui>
    static Lines Computed(Ui& ui) {
        return Texts({ui.txtAmtAfterTax, ui.txtTotalAmt, ui.txtNetAmt});
    }
    template <class Ui>
    static void SetRates(Ui& ui, const char* discount, const char* tax, const char* charges,
                         const char* roundOff) {
        ui.txtDiscount->SetText(discount);
        ui.txtTaxRate->SetText(tax);
        ui.txtOtherCharges->SetText(charges);
        ui.txtRoundOff->SetText(roundOff);
    }

    static Lines Stock() {
        return Rows(
            "Select ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, ItemLedPONo, "
            "ItemLedItemDesc, ItemLedTrnIssQty, ItemLedTrnRptQty, ItemLedNote, ItemLedUnitPrice, "
            "ItemLedBillNo, ItemLandingCost From tblItemLed2001");
    }
    static Lines Received() { return Rows("Select ReceivedQty From ItemMaster2001"); }
    static Lines Entries() {
        return Rows(
            "Select LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerNarration, LedgerTrnType, "
            "LedgerDrAmt, LedgerCrAmt, LedgerMcGenerated From tb_Ledger2001");
    }
    static Lines Bills() {
        return Rows(
            "Select BillID, BillTxnID, BillVchrNo, ISPoBill, InstrumentID, BillDiscount, BillTaxRate, "
            "BillOtherCharges From tblBills2001");
    }
    static Lines Totals() { return Rows("Select LedDetDRTxnTot, LedDetCRTxnTot From Ledger_Details"); }
    static Lines Logged() { return Rows("Select frmName, ErrNumber, ErrDesc From tblError"); }

    const std::string acme = std::to_string(books.AddLedger("Acme", "Suppliers"));
};
