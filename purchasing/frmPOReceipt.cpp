#include "purchasing/frmPOReceipt.h"

#include "core/Boxes.h"
#include "core/CountedExecution.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/Masks.h"
#include "core/NextNumber.h"
#include "core/Quoting.h"
#include "core/modGeneral.h"
#include "inventory/LandingCost.h"
#include "inventory/LedgerBox.h"
#include "inventory/NumberBox.h"
#include "inventory/StockPosting.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/forms/window/Application.h"
#include "shell/EntryChecks.h"

namespace qm {

using enum OrderReceiptGrid::Column;

void frmPOReceipt::Load(std::int32_t poNumber) {
    ui().dtpDate->SetValue(basic::Clock::Today());
    if (poNumber < 1) return;
    poNumber_ = poNumber;
    FillPurchaseLedgers();
    LoadPOReceiptGrid();
    FillPOReceiptNumbers();
    Show(forms::vbModal);
}

void frmPOReceipt::Wire() {
    ui().cmbTxnNo->Change = [this] { LoadReceipt(); };
    ui().cmbTxnNo->Click = [this] { LoadReceipt(); };
    forms::VSFlexGrid& grid = *ui().vsItems;
    Lines().Prepare();
    grid.BeforeRowColChange = [this](int, int, int row, int, bool& cancel) {
        vsItems_BeforeRowColChange(row, cancel);
    };
    grid.BeforeEdit = [this](int row, int col, bool& cancel) { vsItems_BeforeEdit(row, col, cancel); };
    grid.KeyPressEdit = [this](int, int col, int& keyAscii) { vsItems_KeyPressEdit(col, keyAscii); };
    grid.ValidateEdit = [this](int row, int col, bool& cancel) { vsItems_ValidateEdit(row, col, cancel); };
    grid.AfterEdit = [this](int row, int col) { vsItems_AfterEdit(row, col); };
    Boxes().Wire([this] { RecalcPOBill(); });
    ui().cmdSave->Click = [this] { cmdSave_Click(); };
    ui().cmdExit->Click = [this] { cmdExit_Click(); };
}

// The calls are direct: Ctrl+S saves while cmdSave is disabled, too. Kept 56.
std::vector<forms::Form::Command> frmPOReceipt::CtrlCommands() {
    return {
        {'S', [this] { cmdSave_Click(); }},
        {'X', [this] { cmdExit_Click(); }},
    };
}

// Neither the year nor the mark of a deleted ledger is tested.
void frmPOReceipt::FillPurchaseLedgers() {
    FillLedgerBox(*ui().cmbPurchaseLedger,
                  "Select Ledger_ID, Name From Ledger_Master Where PrimaryGrp = 'Purchase'");
}

void frmPOReceipt::FillPOReceiptNumbers() {
    forms::ComboBox& box = *ui().cmbTxnNo;
    box.Clear();
    box.AddItem(NewNumber);
    for (const basic::Value& number :
         FetchFirstColumn("Select Distinct ItemLedTrnNo From tblItemLed" + shared().FinYear +
                          " Where ItemLedPONo = " + ui().txtPoNo->Text()))
        box.AddItem(basic::TextOrEmpty(number));
    box.SetText(NewNumber);
}

void frmPOReceipt::LoadReceipt() {
    LoadPOReceiptGrid();
    FillPOReceiptBill();
    Boxes().SetSaved(ShowsSaved(*ui().cmbTxnNo), {ui().cmbPurchaseLedger});
}

void frmPOReceipt::LoadPOReceiptGrid() {
    Lines().Setup(ui().cmbTxnNo->Text() == NewNumber);
    ado::Recordset lines;
    lines.Open("Select * From tblPo" + shared().FinYear + ", tblPoDet" + shared().FinYear +
                   " Where PoNumber = PoDetPoNo And PoNumber = " + std::to_string(poNumber_),
               shared().Connection);
    ui().txtPoNo->SetText(basic::TextOrEmpty(lines["PoNumber"]));
    ui().txtPoDate->SetText(basic::Format(DateNumber(lines["PoDate"]), DateMask));
    ui().txtSupplier->SetText(basic::TextOrEmpty(lines["PoSupplierName"]));
    ui().txtSupplier->Tag = basic::TextOrEmpty(lines["PoSupplierID"]);
    for (; !lines.Eof(); lines.MoveNext()) {
        ui().vsItems->SetRows(ui().vsItems->Rows() + 1);
        ShowLine(basic::TextOrEmpty(lines["PoDetItemID"]), ui().vsItems->Rows() - 1, lines);
    }
    AddFooter(*ui().vsItems);
    RecalcGridTotal();
}

// The rate is the item's of today: an order keeps none.
void frmPOReceipt::ShowLine(const std::string& itemId, int row, ado::Recordset& line) {
    const auto show = [&](int col, const basic::Value& value) {
        ui().vsItems->SetTextMatrix(row, col, basic::TextOrEmpty(value));
    };
    show(ItemCol, itemId);
    show(NameCol, line["PoDetItemDesc"]);
    show(OrderedCol, line["PoDetQtyOrder"]);
    const ado::RecordsetPtr item =
        Conn().Execute("Select Unit_Price From ItemMaster" + shared().FinYear + " Where Item_ID = " + itemId);
    if (!item->Eof()) show(RateCol, (*item)["Unit_Price"]);
    if (ui().cmbTxnNo->Text() == NewNumber) return show(PreviousCol, line["PoDetQtyRecd"]);
    const ado::RecordsetPtr movement = Conn().Execute(
        "Select ItemLedTrnRptQty, ItemLedNote From tblItemLed" + shared().FinYear +
        " Where ItemLedTrnNo = " + NumberTextIn(*ui().cmbTxnNo) + " And ItemLedItemID = " + itemId);
    if (movement->Eof()) return;
    show(QtyCol, (*movement)["ItemLedTrnRptQty"]);
    show(NoteCol, (*movement)["ItemLedNote"]);
}

// Only the entry's first row is read, and the credit was written first: the ledger's box may show the
// supplier, who is not in its list. Kept 66.
void frmPOReceipt::FillPOReceiptBill() {
    if (!ShowsSaved(*ui().cmbTxnNo)) {
        Boxes().Empty();
        ui().cmbPurchaseLedger->SetListIndex(-1);
        return;
    }
    ado::Recordset bill;
    bill.Open(
        "Select LedgerName, LedgerTxnDate, LedgerDrAmt, LedgerNarration, BillID, BillDiscount, BillTaxRate, "
        "BillOtherCharges From tb_Ledger" +
            shared().FinYear + ", tblBills" + shared().FinYear +
            " Where BillVchrNo = LedgerTrnNo And IsPOBill And BillTxnID = " + NumberTextIn(*ui().cmbTxnNo),
        shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
    if (bill.Eof()) return;
    Boxes().Show(bill);
    ui().cmbPurchaseLedger->SetText(basic::TextOrEmpty(bill["LedgerName"]));
}

void frmPOReceipt::RecalcGridTotal() {
    Boxes().ShowBillTotal(ShowGridTotal(*ui().vsItems, QtyCol, RateCol));
    RecalcPOBill();
}

void frmPOReceipt::RecalcPOBill() {
    Boxes().Recalc(OrderBill);
}

void frmPOReceipt::vsItems_BeforeRowColChange(int row, bool& cancel) {
    cancel = IsInFooter(*ui().vsItems, row);
}

void frmPOReceipt::vsItems_BeforeEdit(int row, int col, bool& cancel) {
    cancel = ShowsSaved(*ui().cmbTxnNo);
    if (!cancel) Lines().BeforeEdit(row, col, cancel);
}

void frmPOReceipt::vsItems_KeyPressEdit(int col, int& keyAscii) {
    Lines().FilterKey(col, keyAscii);
}

void frmPOReceipt::vsItems_ValidateEdit(int row, int col, bool& cancel) {
    Lines().ValidateEdit(row, col, cancel);
}

void frmPOReceipt::vsItems_AfterEdit(int row, int col) {
    if (col == QtyCol || col == NoteCol) Lines().Mark(row, Lines().Received(row) > 0);
    if (col == QtyCol) RecalcGridTotal();
}

// No quantity is asked for: a save without one books an entry and a bill without goods.
bool frmPOReceipt::ValidatePOReceipt() {
    return DateIsInYear(*ui().dtpDate) && IsFilled(*ui().txtBillNo, "Please enter  the Bill No.") &&
           IsChosen(*ui().cmbPurchaseLedger, "Please select a Purchase Ledger to be debited") &&
           DiscountIsMeant();
}

// The percentage is compared as if it were an amount, with half of the bill total before its comma. Kept 67.
bool frmPOReceipt::DiscountIsMeant() {
    if (0.5 * Boxes().BillTotal() > Boxes().Discount()) return true;
    if (Ask("You are about to give discount more than or equal to 50% on Bill Amount\r\n\r\nAre you sure ?"))
        return true;
    Tell("You can now re-enter the amount for discount");
    ui().txtDiscount->SetText("");
    ui().txtDiscount->SetFocus();
    return false;
}

void frmPOReceipt::SaveRow(int row, std::int32_t txnNo, double landingCost) {
    const OrderReceiptGrid grid = Lines();
    const double item = grid.Number(row, ItemCol), qty = grid.Received(row);
    Conn().BeginTrans();
    AddReceived(item, qty);
    ExecuteCounted("Update tblPoDet" + shared().FinYear +
                   " Set PoDetQtyRecd = Iif(IsNull(PoDetQtyRecd), 0, PoDetQtyRecd) + " +
                   basic::NumberText(qty) + " Where PoDetPoNo = " + std::to_string(poNumber_) +
                   " And PoDetItemID = " + basic::NumberText(item));
    InsertMovement(row, txnNo, landingCost);
    Conn().CommitTrans();
}

void frmPOReceipt::InsertMovement(int row, std::int32_t txnNo, double landingCost) {
    using basic::NumberText;
    const OrderReceiptGrid grid = Lines();
    ExecuteCounted("Insert Into tblItemLed" + shared().FinYear +
                   " (ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, ItemLedPoNo, "
                   "ItemLedItemDesc, ItemLedTrnRptQty, ItemLedNote, ItemLedUnitPrice, ItemLedBillNo, "
                   "ItemLandingCost) Values (" +
                   NumberText(txnNo) + ", " + basic::TextOrEmpty(DateNumber(ui().dtpDate->Value())) +
                   ", 'Receipt', " + NumberText(grid.Number(row, ItemCol)) + ", " + NumberText(poNumber_) +
                   ", " + Quoted(grid.Text(row, NameCol)) + ", " + NumberText(grid.Received(row)) + ", " +
                   Quoted(grid.Text(row, NoteCol)) + ", " + NumberText(grid.Number(row, RateCol)) + ", " +
                   Quoted(ui().txtBillNo->Text()) + ", " + NumberText(landingCost) + ")");
}

void frmPOReceipt::SaveBill(std::int32_t txnNo) {
    const forms::ComboBox& ledger = *ui().cmbPurchaseLedger;
    Bill bill = Boxes().Entered(txnNo);
    bill.Credit = {basic::ToLong(basic::Value(ui().txtSupplier->Tag)), basic::Trim(ui().txtSupplier->Text())};
    bill.Debit = {ledger.ItemData(ledger.ListIndex()), ledger.Text()};
    bill.OfOrder = true;
    bill.InstrumentId = poNumber_;
    PostBill(bill);
}

// Always a new number, on a saved receipt too. Each row commits by itself: those before one that fails stay,
// and a repeated save adds them again. Kept 57.
void frmPOReceipt::cmdSave_Click() {
    const forms::WaitPointer wait;
    try {
        if (!ValidatePOReceipt()) return;
        const std::int32_t txnNo =
            NextNumber("Select max(ItemLedTrnNo) As High from tblItemLed" + shared().FinYear);
        LandingCost landingCost = Boxes().Rates();
        for (int row = 1; row <= ui().vsItems->Rows() - FooterRows; ++row)
            if (Lines().IsMarked(row)) SaveRow(row, txnNo, landingCost.Next(Lines().Number(row, RateCol)));
        SaveBill(txnNo);
        FillPurchaseLedgers();
        LoadPOReceiptGrid();
        FillPOReceiptNumbers();
        Tell("Saved PO Receipt with No. '" + std::to_string(txnNo) + "'");
    } catch (const basic::Error& error) {
        RollbackOpen();
        Tell("Cannot Save PO Receipt !!!");
        LogError(Name(), error);
    }
}

}  // namespace qm
