#include "inventory/ItemMaster.h"

#include "core/Boxes.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/GeneralUtils.h"
#include "core/ItemRows.h"
#include "core/modGeneral.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "shell/frmSearchAndLookUp.h"
#include "shell/modSearch.h"

namespace qm {
namespace {

// A file of old that the screen's routines still ask for: with the shared connection open it does nothing.
void OpenProject() {
    SkipOnError([] { OpenConnection(BuildDataFilePath("ProjectDB.mdb")); });
}

}  // namespace

void ItemMaster::Wire() {
    ui().ucAddPanel1->Serve(*this);
}

void ItemMaster::Form_Load() {
    FillComboFromArray(*ui().cboItemType, ItemTypes());
    LockControls(*this);
    SetHeight(5640);
    items_ = std::make_shared<ado::Recordset>();
    SkipOnError([this] {
        items_->Open("Select * From ItemMaster" + shared().FinYear, shared().Connection, ado::adOpenStatic,
                     ado::adLockReadOnly);
    });
}

void ItemMaster::Form_Unload() {
    SkipOnError([this] { items_->Close(); });
    items_.reset();
}

void ItemMaster::ModeNew() {
    ClearControls(*this, "");
    ShowNextNumber();
    new_ = true;
    UnlockControls(*this);
}

void ItemMaster::ShowNextNumber() {
    OpenProject();
    double number = 1;
    SkipOnError([&] { number = NextItemNumber(); });
    ui().txtItemID->SetText(basic::NumberText(number));
}

void ItemMaster::LoadItem(std::int32_t item) {
    ShowItem(std::to_string(item));
    Show(forms::vbModal);
}

void ItemMaster::ShowItem(const std::string& id) {
    SkipOnError([&] { ShowRecord(*ExecuteRecordset(SelectItem(id))); });
}

// Field by field: beyond the first or the last row none can be read, and the values shown stay.
void ItemMaster::ShowRecord(ado::Recordset& item) {
    basic::Control* const controls[] = {
        ui().txtItemID,  ui().txtItemName, ui().cboItemType,  ui().txtUnitDesc, ui().txtOpenStock,
        ui().txtReOrder, ui().txtOverFlow, ui().txtUnitPrice, ui().txtBalance,  ui().txtComments};
    const std::vector<std::string>& fields = ItemFields();
    for (std::size_t i = 0; i < fields.size(); ++i)
        SkipOnError([&] { controls[i]->SetText(basic::TextOrEmpty(item[fields[i]])); });
}

ItemEntry ItemMaster::Values() {
    return {ui().txtItemID->Text(),   ui().txtItemName->Text(),  ui().cboItemType->Text(),
            ui().txtUnitDesc->Text(), ui().txtOpenStock->Text(), ui().txtReOrder->Text(),
            ui().txtOverFlow->Text(), ui().txtUnitPrice->Text(), ui().txtBalance->Text(),
            ui().txtComments->Text()};
}

// The type goes too: unlocking empties it. Kept 2.
void ItemMaster::ucAddPanel1_AddRec() {
    for (forms::TextBox* box : ControlsOf<forms::TextBox>()) box->SetText("");
    for (forms::OptionButton* option : ControlsOf<forms::OptionButton>()) option->SetValue(0);
    ShowNextNumber();
    UnlockControls(*this);
    ui().txtItemName->SetFocus();
}

// After a refusal the panel's buttons stand as after an update, and the fields stay open. Kept 49.
void ItemMaster::ucAddPanel1_UpdRec() {
    OpenProject();
    if (basic::Trim(ui().txtItemID->Text()).empty()) return;
    if (basic::Trim(ui().txtItemName->Text()).empty()) {
        Tell(ItemNameMissing);
        return;
    }
    bool isNew = true;
    SkipOnError([&] { isNew = ExecuteRecordset(SelectItem(ui().txtItemID->Text()))->Eof(); });
    SkipOnError([&] { (isNew ? InsertItem : UpdateItem)(Values()); });
    SkipOnError([this] { items_->Requery(); });
    if (isNew) new_ = false;
}

// No blank stands before WHERE, so the statement fails and nobody hears of it: the row stays, while the
// screen looks as if it were gone. Kept 48: no item ever leaves its table. Nothing is asked.
void ItemMaster::ucAddPanel1_DelRec() {
    OpenProject();
    if (basic::Trim(ui().txtItemID->Text()).empty()) {
        Tell(" Please Select record First ");
        return;
    }
    SkipOnError([this] {
        ExecuteNoRecords("Delete  FROM ItemMaster" + shared().FinYear +
                         "WHERE  Item_ID=" + ui().txtItemID->Text());
    });
    ClearControls(*this, "");
    LockControls(*this);
}

// A look-up that is closed without a choice leaves the key of the last one, and that record is shown.
// Kept 49.
void ItemMaster::ucAddPanel1_FindRec() {
    OpenProject();
    SkipOnError([] {
        frmSearchAndLookUp& lookUp = forms::Default<frmSearchAndLookUp>();
        lookUp.BaseQuery =
            "select Item_ID as [Item Id],Item_Name as [Name]  from ItemMaster" + shared().FinYear;
        SearchLikePrefix = lookUp.BaseQuery + " where Item_Name like ";
        lookUp.ui().mylbl->SetCaption(" Enter Item Name   ");
        lookUp.Show(forms::vbModal);
    });
    ui().txtItemID->SetText(SearchResultKey);
    if (basic::Trim(ui().txtItemID->Text()).empty()) return;
    ShowItem(ui().txtItemID->Text());
}

// One step past the last row there is no record, so the last one stays shown; Previous then shows it again.
// Kept 49.
void ItemMaster::ucAddPanel1_NextRec() {
    SkipOnError([this] {
        if (items_->Eof()) return;
        items_->MoveNext();
        ShowRecord(*items_);
    });
}

void ItemMaster::ucAddPanel1_PrevRec() {
    SkipOnError([this] {
        if (items_->Bof()) return;
        items_->MovePrevious();
        ShowRecord(*items_);
    });
}

}  // namespace qm
