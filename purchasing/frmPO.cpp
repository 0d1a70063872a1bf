#include "purchasing/frmPO.h"

#include "core/Boxes.h"
#include "core/CountedExecution.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/NextNumber.h"
#include "core/Quoting.h"
#include "core/modGeneral.h"
#include "inventory/LedgerBox.h"
#include "inventory/StockPosting.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Error.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "purchasing/frmPOReceipt.h"
#include "shell/EntryChecks.h"

namespace qm {
namespace {

constexpr const char* NewKey = "New";
constexpr const char* Received = "Received";

std::string DayOf(forms::DTPicker& date) {
    return basic::ToText(DateNumber(date.Value()));
}

}  // namespace

void frmPO::Wire() {
    ui().cmbSuppliers->Change = [this] { FillPOTree(); };
    ui().cmbSuppliers->Click = [this] { FillPOTree(); };
    ui().tvPO->NodeClick = [this](forms::Node&) { tvPO_NodeClick(); };
    ui().tvPO->Click = [this] { tvPO_Click(); };
    ui().tvPO->SetLabelEdit(false);
    ui().vsPODet->SetCellButtonPicture(ui().picButton->Picture());
    ui().vsPODet->Click = [this] { vsPODet_Click(); };
    ui().vsPODet->KeyDown = [this](int& keyCode, int) { vsPODet_KeyDown(keyCode); };
    ui().vsPODet->KeyPress = [this](int& keyAscii) { vsPODet_KeyPress(keyAscii); };
    ui().vsPODet->KeyPressEdit = [this](int, int col, int& keyAscii) { vsPODet_KeyPressEdit(col, keyAscii); };
    ui().vsPODet->BeforeEdit = [this](int row, int col, bool& cancel) {
        vsPODet_BeforeEdit(row, col, cancel);
    };
    ui().vsPODet->AfterEdit = [this](int row, int) { vsPODet_AfterEdit(row); };
    ui().vsPODet->CellButtonClick = [this](int, int) { vsPODet_CellButtonClick(); };
    ui().cmdCancelPO->Click = [this] { cmdCancelPO_Click(); };
    ui().cmdDeletePO->Click = [this] { cmdDeletePO_Click(); };
    ui().cmdRecieved->Click = [this] { cmdRecieved_Click(); };
    ui().cmdSave->Click = [this] { cmdSave_Click(); };
    ui().cmdExit->Click = [this] { cmdExit_Click(); };
}

void frmPO::Form_Load() {
    imgList.Add(Received, ":/forms/icons/received.svg");
    ui().tvPO->SetImageList(&imgList);
    ui().dtpDate->SetValue(basic::Clock::Today());
    ResetPurchaseOrders();
}

void frmPO::LoadOrder(std::int32_t order) {
    EnsureLoaded();
    try {
        ChooseOrder(order);
    } catch (...) {
        Unload();
        throw;
    }
    Show(forms::vbModal);
}

void frmPO::ChooseOrder(std::int32_t order) {
    const std::string number = std::to_string(order);
    ado::Recordset head;
    head.Open("Select poSupplierID, poSupplierName, poCancelled From tblPO" + shared().FinYear +
                  " Where poNumber = " + number,
              shared().Connection);
    const auto refuse = [&](const std::string& why) {
        throw basic::Error(basic::error::InvalidCall, "Order " + number + " cannot be shown: " + why,
                           "purchasing");
    };
    if (head.Eof()) refuse("it is not there.");
    if (basic::ToBoolean(head["poCancelled"])) refuse("it was cancelled.");
    forms::ComboBox& suppliers = *ui().cmbSuppliers;
    int line = 0;
    while (line < suppliers.ListCount() &&
           (suppliers.ItemData(line) != basic::ToLong(head["poSupplierID"]) ||
            !basic::EqualText(suppliers.List(line), basic::TextOrEmpty(head["poSupplierName"]))))
        ++line;
    if (line == suppliers.ListCount()) refuse("its supplier bears another name by now.");
    suppliers.SetListIndex(line);
    ui().tvPO->Item(number + "PO").SetSelected(true);
    tvPO_NodeClick();
}

void frmPO::Form_Unload() {
    highest_.reset();
    terms_.clear();
}

std::vector<forms::Form::Command> frmPO::CtrlCommands() {
    return {
        {'S', [this] { cmdSave_Click(); }},
        {'X', [this] { cmdExit_Click(); }},
    };
}

void frmPO::ResetPurchaseOrders() {
    terms_.clear();
    Lines().SetupPOGrid();
    FillPOSuppliers();
    ui().cmbSuppliers->SetListIndex(-1);
    ui().tvPO->Clear();
    Lines().Empty();
}

// Deleted ledgers are listed, so that old orders stay reachable; a save for one is refused. Kept 65.
void frmPO::FillPOSuppliers() {
    FillLedgerBox(
        *ui().cmbSuppliers,
        "Select ledger_master.Ledger_Id, name from  ledger_master, Ledger_Details Where "
        "ledger_master.ledger_id =  Ledger_Details.ledger_id And Fnncl_Yr = " +
            shared().FinYear +
            " And (ledger_master.PrimaryGrp =  'Suppliers' Or ledger_master.PrimaryGrp = 'Debtors')");
}

// Cancelled orders never show.
void frmPO::FillPOTree() {
    forms::ComboBox& suppliers = *ui().cmbSuppliers;
    ado::Recordset orders;
    orders.Open("Select * From tblPO" + shared().FinYear +
                    " Where poSupplierID = " + std::to_string(suppliers.ItemData(suppliers.ListIndex())) +
                    " And poSupplierName = '" + suppliers.Text() + "' And  Not poCancelled",
                shared().Connection);
    forms::TreeView& tree = *ui().tvPO;
    tree.Clear();
    terms_.clear();
    if (!orders.Eof()) ui().dtpDate->SetValue(basic::ToDate(DateNumber(orders["PoDate"])));
    for (; !orders.Eof(); orders.MoveNext()) {
        const std::string number = basic::TextOrEmpty(orders["PoNumber"]);
        tree.Add("", 0, number + "PO", number, POUntouched(number) ? "" : Received).Tag = orders["PoDate"];
        terms_[number] = basic::TextOrEmpty(orders["PoDlvTerm"]);
    }
    forms::Node& fresh = tree.Add("", 0, NewKey, "<New>");
    tree.SetFocus();
    fresh.SetSelected(true);
    tvPO_NodeClick();
}

bool frmPO::POUntouched(const std::string& poNumber) {
    ado::Recordset lines;
    lines.Open("Select PoDetQtyRecd From tblPoDet" + shared().FinYear + " Where PoDetPoNo = " + poNumber,
               shared().Connection);
    for (; !lines.Eof(); lines.MoveNext())
        if (basic::NumberOrZero(lines["PoDetQtyRecd"]) > 0) return false;
    return true;
}

std::string frmPO::SelectedNumber() {
    const forms::Node* const node = ui().tvPO->SelectedItem();
    return node ? basic::Left(node->Key(), node->Key().size() - 2) : "";
}

bool frmPO::OrderIsSelected() {
    const forms::Node* const node = ui().tvPO->SelectedItem();
    return node && node->Key() != NewKey;
}

bool frmPO::OrderIsTouched() {
    return OrderIsSelected() && !POUntouched(SelectedNumber());
}

void frmPO::tvPO_NodeClick() {
    if (!ui().tvPO->SelectedItem()) return;
    for (forms::CommandButton* button : {ui().cmdCancelPO, ui().cmdDeletePO, ui().cmdRecieved})
        button->SetEnabled(OrderIsSelected());
    const bool open = !OrderIsTouched();
    ui().txtDelTerm->SetEnabled(open);
    ui().dtpDate->SetEnabled(open);
    ShowPOLines();
}

// Where the supplier has no order, the terms of a new one keep what stands there.
void frmPO::ShowPOLines() {
    Lines().Empty();
    const basic::Value& date = ui().tvPO->SelectedItem()->Tag;
    ui().dtpDate->SetValue(date.IsNull() ? basic::Clock::Today() : basic::ToDate(DateNumber(date)));
    const std::string number = SelectedNumber();
    if (!terms_.empty()) ui().txtDelTerm->SetText(number == "N" ? "" : terms_[number]);
    Lines().Fill(basic::ToLong(basic::PrefixValue(number)));
}

void frmPO::vsPODet_Click() {
    if (OrderIsTouched()) Tell("One or more items have been received\r\n\r\nCannot edit PO");
}

// Any key is answered on a touched order, Ctrl, Tab and the arrows too.
void frmPO::vsPODet_KeyDown(int& keyCode) {
    if (OrderIsTouched()) {
        keyCode = 0;
        return vsPODet_Click();
    }
    const int row = ui().vsPODet->Row();
    if (keyCode == forms::vbKeyDelete && ui().tvPO->SelectedItem() && row >= 1) Lines().Remove(row);
}

void frmPO::vsPODet_KeyPress(int& keyAscii) {
    if (ui().vsPODet->Col() == OrderGrid::NameCol) keyAscii = 0;
}

void frmPO::vsPODet_KeyPressEdit(int col, int& keyAscii) {
    Lines().FilterKey(col, keyAscii);
}

void frmPO::vsPODet_BeforeEdit(int row, int col, bool& cancel) {
    cancel = OrderIsTouched() || Lines().IsFixed(row, col);
}

void frmPO::vsPODet_AfterEdit(int row) {
    if (OrderIsSelected() && Lines().IsSaved(row)) Lines().Mark(row);
}

void frmPO::vsPODet_CellButtonClick() {
    Lines().AddPicked();
}

bool frmPO::ValidatePO() {
    if (!IsChosen(*ui().cmbSuppliers, "Please select a supplier") || !SupplierStands() ||
        !DateIsInYear(*ui().dtpDate))
        return false;
    if (!ui().tvPO->SelectedItem()) {
        Tell("Please select any item from PO's section to add or modify");
        ui().tvPO->Item(NewKey).SetSelected(true);
        return false;
    }
    return LinesAreComplete();
}

bool frmPO::SupplierStands() {
    forms::ComboBox& suppliers = *ui().cmbSuppliers;
    ado::Recordset ledger;
    ledger.Open("Select Deleted From Ledger_Master Where Ledger_ID = " +
                    std::to_string(suppliers.ItemData(suppliers.ListIndex())),
                shared().Connection);
    if (!basic::ToBoolean(ledger["Deleted"])) return true;
    Tell(
        "The selected supplier has been deleted and \r\nis available for only viewing/ modifying old "
        "transactions\r\n\r\nPlease choose another one");
    suppliers.SetFocus();
    suppliers.OpenList();
    return false;
}

bool frmPO::LinesAreComplete() {
    for (int row = 1; row <= Lines().LastLine(); ++row) {
        if (!Lines().HasItem(row))
            return Lines().Refuse(row, OrderGrid::NameCol, "Please select any item to order");
        if (Lines().Text(row, OrderGrid::QtyCol).empty())
            return Lines().Refuse(
                row, OrderGrid::QtyCol,
                "Please enter the qty. ordered for item '" + Lines().Text(row, OrderGrid::NameCol) + "'");
    }
    return true;
}

void frmPO::cmdSave_Click() {
    try {
        if (!ValidatePO() || Lines().LastLine() == 0) return;
        if (OrderIsSelected())
            SaveExisting();
        else
            SaveNew();
        ResetPurchaseOrders();
    } catch (const basic::Error& error) {
        RollbackOpen();
        Tell("Cannot save Purchase Order");
        LogError(Name(), error);
    }
}

// The number is drawn before the transaction, and nothing reserves it. Kept 11.
void frmPO::SaveNew() {
    if (highest_ && highest_->State() != ado::adStateClosed) {
        highest_->Requery();
    } else {
        highest_ = std::make_shared<ado::Recordset>();
        highest_->Open("Select max(poNumber) as  High from tblPo" + shared().FinYear, shared().Connection,
                       ado::adOpenStatic, ado::adLockReadOnly);
    }
    const std::string number = basic::NumberText(NumberAfter((*highest_)["High"]));
    forms::ComboBox& suppliers = *ui().cmbSuppliers;
    Conn().BeginTrans();
    ExecuteCounted("Insert Into tblPO" + shared().FinYear +
                   " (poNumber, posupplierid, Podate, posupplierName,podlvterm) Values (" + number + ", " +
                   std::to_string(suppliers.ItemData(suppliers.ListIndex())) + ", " + DayOf(*ui().dtpDate) +
                   "," + Quoted(suppliers.Text()) + "," + Quoted(ui().txtDelTerm->Text()) + ")");
    for (int row = 1; row <= Lines().LastLine(); ++row) InsertLine(row, number);
    Conn().CommitTrans();
    Tell("Purchase Order Saved with No.'" + number + "'");
}

// Received quantities are not tested here: what stops a touched order is that nothing on it can be edited.
void frmPO::SaveExisting() {
    const std::string number = SelectedNumber();
    Conn().BeginTrans();
    ExecuteCounted("Update tblPO" + shared().FinYear + " Set PoDate = " + DayOf(*ui().dtpDate) +
                   ", PoDlvTerm = " + Quoted(ui().txtDelTerm->Text()) + " Where PoNumber = " + number);
    for (int row = 1; row <= Lines().LastLine(); ++row) SaveLine(row, number);
    Conn().CommitTrans();
    Tell("Purchase order saved");
}

void frmPO::SaveLine(int row, const std::string& number) {
    const std::string item = Lines().Figure(row, OrderGrid::ItemCol);
    if (Lines().IsRemoved(row))
        ExecuteCounted("Delete * From tblPoDet" + shared().FinYear + " Where PoDetPoNo = " +
                       Lines().Figure(row, OrderGrid::OrderCol) + " And PoDetItemID = " + item);
    else if (Lines().IsMarked(row))
        ExecuteCounted("Update tblPoDet" + shared().FinYear +
                       " Set PoDetQtyOrder = " + Lines().Figure(row, OrderGrid::QtyCol) +
                       " Where PoDetPoNo = " + number + " And PoDetItemID = " + item);
    else if (!Lines().IsSaved(row))
        InsertLine(row, number);
}

void frmPO::InsertLine(int row, const std::string& number) {
    ExecuteCounted("Insert Into tblPODet" + shared().FinYear +
                   " ( PoDetPoNo, PoDetItemID, PoDetItemDesc, PoDetQtyOrder) Values (" + number + ", " +
                   Lines().Figure(row, OrderGrid::ItemCol) + ", '" + Lines().Text(row, OrderGrid::NameCol) +
                   "', " + Lines().Figure(row, OrderGrid::QtyCol) + ")");
}

void frmPO::cmdCancelPO_Click() {
    if (!ui().tvPO->SelectedItem()) return;
    const std::string number = SelectedNumber();
    if (!Ask("Cancel PO No. '" + number + "'\r\n\r\nAre you sure ?", vbYesNo)) return;  // no icon
    if (!POUntouched(number))
        return Tell("One or more items have been received for Purchase Order No." + number +
                    "\r\n\r\nCannot Cancel !!!");
    if (Affected("Update tblPO" + shared().FinYear + " Set poCancelled = True Where poNumber = " + number) <
        1)
        return;
    Tell("Cancelled Purchase Order No. '" + number + "'");
    ResetPurchaseOrders();
}

// In no transaction, and the screen comes back empty in every case, also after No. Kept 64.
void frmPO::cmdDeletePO_Click() {
    const std::string number = SelectedNumber();
    if (!number.empty() && Ask("Delete PO No. '" + number + "'\r\n\r\nAre you sure ?")) {
        if (!POUntouched(number))
            Tell("One or more items have been received for Purchase Order No." + number +
                 "\r\n\r\nCannot Delete !!!");
        else if (Affected("Delete From tblPODet" + shared().FinYear + " Where PoDetPoNo = " + number) >= 1 &&
                 Affected("Delete From tblPO" + shared().FinYear + " Where poNumber = " + number) >= 1)
            Tell("Deleted Purchase Order No. '" + number + "'");
    }
    ResetPurchaseOrders();
}

void frmPO::cmdRecieved_Click() {
    if (!ui().tvPO->SelectedItem()) return;
    const std::int32_t number = basic::ToLong(basic::PrefixValue(SelectedNumber()));
    const std::string supplier = ui().cmbSuppliers->Text();
    forms::Default<frmPOReceipt>().Load(number);
    ResetPurchaseOrders();
    ui().cmbSuppliers->SetText(supplier);
}

}  // namespace qm
