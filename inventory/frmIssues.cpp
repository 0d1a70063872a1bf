#include "inventory/frmIssues.h"

#include "core/Boxes.h"
#include "core/ErrorModule.h"
#include "core/NextNumber.h"
#include "core/modGeneral.h"
#include "inventory/NumberBox.h"
#include "inventory/StockPosting.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Number.h"
#include "shell/EntryChecks.h"

namespace qm {
namespace {

const char* const FormName = "frmIssues";
constexpr int QtyWidth = 2000;

}  // namespace

void frmIssues::Wire() {
    Grid().Prepare(*ui().picButton);
    ui().cmbTxnNo->Change = [this] { FillIssueGrid(); };
    ui().cmbTxnNo->Click = [this] { FillIssueGrid(); };
    forms::VSFlexGrid& grid = *ui().vsIssue;
    grid.BeforeEdit = [this](int row, int col, bool& cancel) { vsIssue_BeforeEdit(row, col, cancel); };
    grid.KeyPressEdit = [this](int, int col, int& keyAscii) { vsIssue_KeyPressEdit(col, keyAscii); };
    grid.ValidateEdit = [this](int, int col, bool& cancel) { vsIssue_ValidateEdit(col, cancel); };
    grid.CellButtonClick = [this](int row, int) { vsIssue_CellButtonClick(row); };
    grid.AfterEdit = [this](int row, int) { vsIssue_AfterEdit(row); };
    grid.KeyDown = [this](int& keyCode, int) { vsIssue_KeyDown(keyCode); };
    ui().cmdSave->Click = [this] { cmdSave_Click(); };
    ui().cmdExit->Click = [this] { cmdExit_Click(); };
}

void frmIssues::Load(std::int32_t trnNo) {
    ui().dtpDate->SetValue(basic::Clock::Today());
    FillIssueNumbers();
    trnNo_ = trnNo;
    ui().cmbTxnNo->SetText(trnNo == 0 ? NewNumber : basic::NumberText(trnNo));
    Show(forms::vbModal);
}

std::vector<forms::Form::Command> frmIssues::CtrlCommands() {
    return {
        {'S', [this] { cmdSave_Click(); }},
        {'X', [this] { cmdExit_Click(); }},
    };
}

void frmIssues::FillIssueNumbers() {
    ui().cmbTxnNo->Clear();
    ado::Recordset rows;
    rows.Open(
        "Select Distinct ItemLedTrnNo From tblItemLed" + shared().FinYear + " Where ItemLedTrnType = 'Issue'",
        shared().Connection, ado::adOpenForwardOnly, ado::adLockReadOnly);
    for (; !rows.Eof(); rows.MoveNext()) ui().cmbTxnNo->AddItem(basic::TextOrEmpty(rows["ItemLedTrnNo"]));
    rows.Close();
    ui().cmbTxnNo->AddItem(NewNumber);
}

// The numbers are shared by all kinds of movement, so that of a receipt shows its rows here. Kept 60.
void frmIssues::FillIssueGrid() {
    Grid().Setup(QtyWidth);
    const auto date = Grid().Fill("Select * From tblItemLed" + shared().FinYear +
                                      " Where ItemLedTrnNo = " + NumberTextIn(*ui().cmbTxnNo),
                                  "itemledtrnIssqty");
    if (date) ui().dtpDate->SetValue(*date);
}

void frmIssues::vsIssue_BeforeEdit(int row, int col, bool& cancel) {
    Grid().BeforeEdit(row, col, cancel);
}

void frmIssues::vsIssue_KeyPressEdit(int col, int& keyAscii) {
    Grid().FilterKey(col, keyAscii);
}

void frmIssues::vsIssue_ValidateEdit(int col, bool& cancel) {
    Grid().ValidateEdit(col, cancel);
}

void frmIssues::vsIssue_CellButtonClick(int row) {
    Grid().CellButtonClick(row);
}

void frmIssues::vsIssue_AfterEdit(int row) {
    if (Grid().IsSaved(row)) Grid().Mark(row, true);
}

// The entry row goes too, and none comes back until the grid is filled again. Kept 62.
void frmIssues::vsIssue_KeyDown(int keyCode) {
    if (keyCode == forms::vbKeyDelete && ui().vsIssue->Row() >= 1)
        Grid().Remove(ui().vsIssue->Row(), "issued");
}

bool frmIssues::ValidateIssue() {
    try {
        if (!DateIsInYear(*ui().dtpDate)) return false;
        ado::Recordset stock;
        stock.Open(
            "Select Item_ID, (Open_Stock-IssuedQty+ReceivedQty) As NetQty From ItemMaster" + shared().FinYear,
            shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
        if (Grid().EntryRow() == 1) return false;
        for (int row = 1; row < Grid().EntryRow(); ++row)
            if (!RowIsComplete(row) || !StockSuffices(row, stock)) return false;
        return true;
    } catch (const basic::Error& error) {
        LogError(FormName, error);
        return false;
    }
}

// A missing item is logged as well, as error 0: kept 6.
bool frmIssues::RowIsComplete(int row) {
    if (Grid().Text(row, StockGrid::NameCol).empty()) {
        Grid().Refuse(row, StockGrid::NameCol, "Please select items to be issued");
        LogError(FormName, 0, "", "");
        return false;
    }
    return !Grid().Text(row, StockGrid::QtyCol).empty() ||
           Grid().Refuse(row, StockGrid::QtyCol,
                         "Please specify qty. to be issued for item\r\n\r\n'" +
                             Grid().Text(row, StockGrid::NameCol) + "'");
}

// Saved rows are tested too, though the net quantity is already without theirs. Each search goes on from
// where the last one stopped, so an item that lies before the row above's is not found: reading its quantity
// raises. Where a counter is Null the net quantity is, and anything passes. All of it kept 61.
bool frmIssues::StockSuffices(int row, ado::Recordset& stock) {
    if (stock.RecordCount() == 0) return true;
    stock.Find("Item_ID = " + basic::NumberText(Grid().Number(row, StockGrid::ItemCol)), 0,
               ado::adSearchForward);
    const basic::Value net = stock["NetQty"];
    if (net.IsNull() || basic::ToDouble(net) >= Grid().Number(row, StockGrid::QtyCol)) return true;
    return Grid().Refuse(row, StockGrid::QtyCol,
                         "Net qty. present in stock for Item '" + Grid().Text(row, StockGrid::NameCol) +
                             "' = " + basic::ToText(net) +
                             "\r\n\r\nCannot issue qty. more than stock available");
}

// Each row commits by itself: what was written before a failure stays. Kept 57.
void frmIssues::cmdSave_Click() {
    try {
        if (!ValidateIssue()) return;
        trnNo_ = IssueNumber();
        for (int row = 1; row < Grid().EntryRow(); ++row) SaveRow(row);
        Tell("Issue details saved with Issue voucher no. '" + basic::NumberText(trnNo_) + "'");
        FillIssueNumbers();  // it empties the box, so that "<New>" is a change and clears the grid
        ui().cmbTxnNo->SetText(NewNumber);
        ui().vsIssue->Select(1, StockGrid::NameCol);
    } catch (const basic::Error& error) {
        RollbackOpen();
        Tell("Cannot save Issue Details");
        LogError(FormName, error);
    }
}

// Any other text than "<New>" is the number, whether such an issue is there or not. Kept 60.
std::int32_t frmIssues::IssueNumber() {
    if (ui().cmbTxnNo->Text() == NewNumber)
        return NextNumber("Select Max(ItemLedTrnNo) As High from tblItemLed" + shared().FinYear);
    return basic::ToLong(NumberIn(*ui().cmbTxnNo));
}

void frmIssues::SaveRow(int row) {
    const double item = Grid().Number(row, StockGrid::ItemCol);
    const std::string& note = Grid().Text(row, StockGrid::NoteCol);
    Conn().BeginTrans();
    if (!Grid().IsSaved(row)) {
        const double qty = Grid().Number(row, StockGrid::QtyCol);
        InsertMovement({.TxnNo = trnNo_,
                        .Date = ui().dtpDate->Value(),
                        .Type = "Issue",
                        .ItemId = item,
                        .Description = Grid().Text(row, StockGrid::NameCol),
                        .Issued = qty,
                        .Note = note,
                        .UnitPrice = Grid().Number(row, StockGrid::PriceCol),
                        .LandingCost = {}});
        AddIssued(item, qty);
    } else if (Grid().IsMarked(row)) {
        UpdateRemark(NumberIn(*ui().cmbTxnNo), item, "Issue", note);
    }
    Conn().CommitTrans();
}

}  // namespace qm
