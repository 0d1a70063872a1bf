#include "inventory/frmReceipt.h"

#include "core/Boxes.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/NextNumber.h"
#include "core/modGeneral.h"
#include "inventory/BillFooter.h"
#include "inventory/LandingCost.h"
#include "inventory/LedgerBox.h"
#include "inventory/NumberBox.h"
#include "inventory/StockPosting.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/forms/window/Application.h"
#include "shell/EntryChecks.h"

namespace qm {
namespace {

constexpr int QtyWidth = 1500;  // twips

}  // namespace

StockGrid frmReceipt::Grid() {
    return {*ui().vsReceipt, FooterRows};
}

void frmReceipt::Wire() {
    ui().cmbReceipt->Change = [this] { LoadReceipt(); };
    ui().cmbReceipt->Click = [this] { LoadReceipt(); };
    Grid().Prepare(*ui().picButton);
    forms::VSFlexGrid& grid = *ui().vsReceipt;
    grid.BeforeRowColChange = [this](int, int, int row, int, bool& cancel) {
        vsReceipt_BeforeRowColChange(row, cancel);
    };
    grid.BeforeEdit = [this](int row, int col, bool& cancel) { vsReceipt_BeforeEdit(row, col, cancel); };
    grid.KeyPressEdit = [this](int, int col, int& keyAscii) { vsReceipt_KeyPressEdit(col, keyAscii); };
    grid.ValidateEdit = [this](int, int col, bool& cancel) { vsReceipt_ValidateEdit(col, cancel); };
    grid.CellButtonClick = [this](int row, int) { vsReceipt_CellButtonClick(row); };
    grid.AfterEdit = [this](int row, int col) { vsReceipt_AfterEdit(row, col); };
    grid.KeyDown = [this](int& keyCode, int) { vsReceipt_KeyDown(keyCode); };
    Boxes().Wire([this] { RecalcBill(); });
    ui().cmdSave->Click = [this] { cmdSave_Click(); };
    ui().cmdExit->Click = [this] { cmdExit_Click(); };
}

void frmReceipt::Load(std::int32_t trnNo) {
    ui().dtpDate->SetValue(basic::Clock::Today());
    FillReceiptNumbers();
    FillItemLedgers();
    FillSuppliers();
    trnNo_ = trnNo;
    ui().cmbReceipt->SetText(trnNo == 0 ? NewNumber : std::to_string(trnNo));
    Show(forms::vbModal);
}

// The calls are direct: Ctrl+S saves while cmdSave is disabled, too. Kept 56.
std::vector<forms::Form::Command> frmReceipt::CtrlCommands() {
    return {
        {'S', [this] { cmdSave_Click(); }},
        {'X', [this] { cmdExit_Click(); }},
    };
}

void frmReceipt::FillReceiptNumbers() {
    forms::ComboBox& box = *ui().cmbReceipt;
    box.Clear();
    for (const basic::Value& number :
         FetchFirstColumn("Select Distinct ItemLedTrnNo From tblItemLed" + shared().FinYear +
                          " Where ItemLedTrnType = 'Receipt' And ItemLedPoNo = 0"))
        box.AddItem(basic::TextOrEmpty(number));
    box.AddItem(NewNumber);
}

// No purchase ledger is offered here: kept 58.
void frmReceipt::FillItemLedgers() {
    FillLedgers(*ui().cmbItemLedgers, "('Debtors', 'Suppliers', 'Cash In Hand', 'Bank')  ", "");
}

// The test looks at the box of the bill's number, which never reads so: deleted ledgers are listed. Kept 58.
void frmReceipt::FillSuppliers() {
    const bool onlyStanding = basic::Trim(ui().txtBillNo->Text()) == "<New>";
    FillLedgers(*ui().cmbSupplier, "('Suppliers', 'Debtors')  ",
                onlyStanding ? " And Ledger_Master.Deleted = False" : "");
}

void frmReceipt::FillLedgers(forms::ComboBox& box, const std::string& groups, const std::string& more) {
    FillLedgerBox(
        box,
        "Select Ledger_Master.Ledger_ID, Name, Group_ID, PrimaryGrp,  Opening_Bal, Closing_Bal, Bal_Type, "
        "LedDetDrTxnTot, LedDetCrTxnTot  From Ledger_Master, Ledger_Details Where PrimaryGrp in  " +
            groups +
            "And Ledger_Master.Ledger_ID = Ledger_Details.Ledger_ID  And Ledger_Details.Fnncl_Yr = " +
            shared().FinYear + more);
}

void frmReceipt::LoadReceipt() {
    FillReceiptGrid();
    FillBillFields();
    Boxes().SetSaved(ShowsSaved(*ui().cmbReceipt), {ui().cmbSupplier, ui().cmbItemLedgers});
}

void frmReceipt::SetupReceiptGrid() {
    Grid().Setup(QtyWidth);
}

void frmReceipt::FillReceiptGrid() {
    SetupReceiptGrid();
    const auto date = Grid().Fill("Select * From tblItemLed" + shared().FinYear + " Where ItemLedTrnNo = " +
                                      NumberTextIn(*ui().cmbReceipt) + " And ItemLedTrnType = 'Receipt'",
                                  "ItemLedTrnRptQty");
    if (date) ui().dtpDate->SetValue(*date);
    AddFooter(*ui().vsReceipt);
    RecalcGridTotal();
}

// An entry of amount 0 fills neither ledger box.
void frmReceipt::FillBillFields() {
    if (!ShowsSaved(*ui().cmbReceipt)) {
        Boxes().Empty();
        ui().cmbSupplier->SetListIndex(-1);
        ui().cmbItemLedgers->SetListIndex(-1);
        return;
    }
    ado::Recordset rows;
    rows.Open(
        "Select LedgerName, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt, LedgerNarration, BillID, BillDiscount, "
        "BillTaxRate, BillOtherCharges From tb_Ledger" +
            shared().FinYear + ", tblBills" + shared().FinYear +
            " Where BillVchrNo = LedgerTrnNo And IsPOBill  = False And BillTxnID = " +
            NumberTextIn(*ui().cmbReceipt),
        shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
    if (!rows.Eof()) Boxes().Show(rows);
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::string ledger = basic::TextOrEmpty(rows["LedgerName"]);
        if (basic::NumberOrZero(rows["LedgerCrAmt"]) > 0) ui().cmbSupplier->SetText(ledger);
        if (basic::NumberOrZero(rows["LedgerDrAmt"]) > 0) ui().cmbItemLedgers->SetText(ledger);
    }
    rows.Close();
}

void frmReceipt::RecalcGridTotal() {
    Boxes().ShowBillTotal(ShowGridTotal(*ui().vsReceipt, StockGrid::QtyCol, StockGrid::PriceCol));
    RecalcBill();
}

void frmReceipt::RecalcBill() {
    Boxes().Recalc(ReceiptBill);
}

void frmReceipt::vsReceipt_BeforeRowColChange(int row, bool& cancel) {
    cancel = IsInFooter(*ui().vsReceipt, row);
}

void frmReceipt::vsReceipt_BeforeEdit(int row, int col, bool& cancel) {
    Grid().BeforeEdit(row, col, cancel);
}

void frmReceipt::vsReceipt_KeyPressEdit(int col, int& keyAscii) {
    Grid().FilterKey(col, keyAscii);
}

void frmReceipt::vsReceipt_ValidateEdit(int col, bool& cancel) {
    Grid().ValidateEdit(col, cancel);
}

void frmReceipt::vsReceipt_CellButtonClick(int row) {
    Grid().CellButtonClick(row);
}

void frmReceipt::vsReceipt_AfterEdit(int row, int col) {
    const StockGrid grid = Grid();
    if (grid.IsSaved(row)) grid.Mark(row, true);
    if (col != StockGrid::QtyCol) return;
    grid.Mark(row, grid.Number(row, StockGrid::QtyCol) > 0);
    RecalcGridTotal();
}

void frmReceipt::vsReceipt_KeyDown(int keyCode) {
    forms::VSFlexGrid& grid = *ui().vsReceipt;
    const int row = grid.Row();
    if (keyCode != forms::vbKeyDelete || row >= Grid().EntryRow()) return;
    if (!Grid().Remove(row, "received")) return;
    grid.Select(1, StockGrid::NameCol);
    grid.SetFocus();
    RecalcGridTotal();
}

// A bill number that is there already passes, and so do a quantity of 0 and a receipt with no items. Kept 59.
bool frmReceipt::ValidateReceipt() {
    if (!DateIsInYear(*ui().dtpDate)) return false;
    if (!IsFilled(*ui().txtBillNo, "Please enter the bill no.")) return false;
    if (!IsChosen(*ui().cmbSupplier, "Please select a supplier")) return false;
    if (!IsChosen(*ui().cmbItemLedgers, "Please select a ledger to be debited")) return false;
    if (ui().vsReceipt->Rows() == 2) return false;
    const StockGrid grid = Grid();
    for (int row = 1; row < grid.EntryRow(); ++row) {
        const std::string item = grid.Text(row, StockGrid::NameCol);
        if (item.empty()) return grid.Refuse(row, StockGrid::NameCol, "Please select items to be issued");
        if (grid.Text(row, StockGrid::QtyCol).empty())
            return grid.Refuse(row, StockGrid::QtyCol,
                               "Please specify qty. to be issued for item\r\n\r\n'" + item + "'");
    }
    return true;
}

// Each row stands by itself: those before one that fails stay, and a repeated save writes them again under a
// new number. Kept 57.
void frmReceipt::SaveRows() {
    const StockGrid grid = Grid();
    LandingCost landingCost = Boxes().Rates();
    for (int row = 1; row < grid.EntryRow(); ++row) {
        const double itemId = grid.Number(row, StockGrid::ItemCol);
        const std::string remark = grid.Text(row, StockGrid::NoteCol);
        Conn().BeginTrans();
        if (grid.IsSaved(row)) {
            if (grid.IsMarked(row)) UpdateRemark(NumberIn(*ui().cmbReceipt), itemId, "Receipt", remark);
        } else {
            const double price = grid.Number(row, StockGrid::PriceCol);
            const double qty = grid.Number(row, StockGrid::QtyCol);
            InsertMovement({.TxnNo = trnNo_,
                            .Date = ui().dtpDate->Value(),
                            .Type = "Receipt",
                            .ItemId = itemId,
                            .Description = grid.Text(row, StockGrid::NameCol),
                            .Received = qty,
                            .Note = remark,
                            .UnitPrice = price,
                            .LandingCost = landingCost.Next(price)});
            AddReceived(itemId, qty);
        }
        Conn().CommitTrans();
    }
}

void frmReceipt::SaveBill() {
    const forms::ComboBox &supplier = *ui().cmbSupplier, &ledger = *ui().cmbItemLedgers;
    Bill bill = Boxes().Entered(trnNo_);
    bill.Credit = {supplier.ItemData(supplier.ListIndex()), basic::Trim(supplier.Text())};
    bill.Debit = {ledger.ItemData(ledger.ListIndex()), ledger.Text()};
    PostBill(bill);
}

void frmReceipt::cmdSave_Click() {
    const forms::WaitPointer wait;
    try {
        if (!ValidateReceipt()) return;
        trnNo_ = ui().cmbReceipt->Text() == NewNumber
                     ? NextNumber("Select Max(ItemLedTrnNo) As High from tblItemLed" + shared().FinYear)
                     : basic::ToLong(NumberIn(*ui().cmbReceipt));
        SaveRows();
        SaveBill();
        Tell("Issue details saved with Receipt voucher no. '" + std::to_string(trnNo_) + "'");
        FillReceiptGrid();
        FillReceiptNumbers();
        ui().cmbReceipt->SetText(std::to_string(trnNo_));
    } catch (const basic::Error& error) {
        RollbackOpen();
        Tell("Cannot save Receipt Details");
        LogError(Name(), error);
    }
}

}  // namespace qm
