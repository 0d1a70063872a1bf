#include "accounts/Ledger_Master.h"

#include "core/Boxes.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/GeneralUtils.h"
#include "core/LedgerSide.h"
#include "core/modGeneral.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "shell/frmSearchAndLookUp.h"
#include "shell/modSearch.h"
#include "years/frmClosingBal.h"

namespace qm {
namespace {

constexpr int PartyHeight = 6975, PartyTop = 1395, LowestTop = 2895;
constexpr int HeightAbovePanel = 2600;

bool IsParty(const std::string& group) {
    return group == "Debtors" || group == "Suppliers";
}

}  // namespace

void Ledger_Master::Load(const std::string& GroupName, const std::string& LedgerName) {
    FillGroups();
    if (basic::Trim(GroupName).empty())
        IsNewLedger = true;
    else
        ShowGroup(GroupName, LedgerName);
    OpenForPaging();
    Show(forms::vbModal);
}

void Ledger_Master::LoadLedger(std::int32_t ledgerId) {
    FillGroups();
    ShowLedger(std::to_string(ledgerId));
    IsNewLedger = false;
    OpenForPaging();
    Show(forms::vbModal);
}

void Ledger_Master::FillGroups() {
    FillComboFromQuery(*ui().Combo1, "Select Group_Head_Name from Group_Head_Master Where Parent_Id=0",
                       false);
}

void Ledger_Master::OpenForPaging() {
    LedgerRecordset = std::make_shared<ado::Recordset>();
    LedgerRecordset->Open(
        "Select * from Ledger_Master, Ledger_Details Where Ledger_Master.Ledger_Id = "
        "Ledger_Details.Ledger_Id "
        "and Fnncl_Yr = " +
            shared().FinYear + " And Ledger_Master.Deleted = False",
        shared().Connection, ado::adOpenStatic, ado::adLockReadOnly);
}

// Paging does not start at the ledger shown here, but at the first one of the books. Kept 27.
void Ledger_Master::ShowGroup(const std::string& groupName, const std::string& ledgerName) {
    ui().Combo1->SetText(groupName);
    ApplyGroupLayout();
    std::string sql =
        "Select A.Name, A.Ledger_ID, C.Opening_Bal, C.Bal_Type From Ledger_Master As A, Group_Head_Master As "
        "B, Ledger_Details As C Where A.Group_ID =  B.Group_ID And B.Group_Head_Name = \"" +
        groupName + "\" And A.Ledger_ID = C.Ledger_ID and Fnncl_Yr = " + shared().FinYear +
        " And A.Deleted = False";
    const bool named = !basic::Trim(ledgerName).empty();
    if (named) {
        ui().txtLedName->SetText(ledgerName);
        sql =
            "Select A.Ledger_ID, B.Opening_Bal, B.Bal_Type  From Ledger_Master As A, Ledger_Details As B "
            "Where A.Name =  \"" +
            ledgerName + "\" And A.Ledger_ID = B.Ledger_ID and Fnncl_Yr = " + shared().FinYear +
            " And A.Deleted = False";
    }
    ado::Recordset ledger;
    ledger.Open(sql, shared().Connection);
    IsNewLedger = ledger.Eof();
    if (IsNewLedger) return;
    if (!named) ui().txtLedName->SetText(basic::TextOrEmpty(ledger["Name"]));
    ui().txtLedgerId->SetText(basic::TextOrEmpty(ledger["Ledger_ID"]));
    ShowBalance(ledger);
}

ado::RecordsetPtr Ledger_Master::GetResultSet(const std::string& sql) {
    return ExecuteRecordset(sql);
}

void Ledger_Master::Wire() {
    ui().ucAddPanel1->Serve(*this);
    ui().Combo1->Click = [this] { Combo1_Click(); };
    ui().Combo1->Validate = [this](bool&) { Combo1_Validate(); };
    ui().Text2->Validate = [this](bool&) { Text2_Validate(); };
    ui().txtLedgerId->Change = [this] { txtLedgerId_Change(); };
    ui().cmdStkClBal->Click = [this] { cmdStkClBal_Click(); };
}

void Ledger_Master::Form_Unload() {
    if (LedgerRecordset) LedgerRecordset->Close();
    LedgerRecordset.reset();
}

// The group stays as it was chosen, and the layout with it.
void Ledger_Master::ucAddPanel1_AddRec() {
    for (forms::TextBox* box : ControlsOf<forms::TextBox>()) box->SetText("");
    for (forms::OptionButton* option : ControlsOf<forms::OptionButton>()) option->SetValue(0);
    EnableControls();
    ui().Text2->SetText("0");
    IsNewLedger = true;
    ui().txtLedName->SetFocus();  // where the typing begins
}

// A ledger that a test refused is no longer a new one: the next Update takes it for one that stands. Kept 24.
void Ledger_Master::ucAddPanel1_UpdRec() {
    EnableControls();
    IsNewLedger ? AddLedger() : UpdateLedger();
    IsNewLedger = false;
}

// After a delete the screen stands locked; this ends it too. The number is the store's, nobody types it.
void Ledger_Master::EnableControls() {
    for (forms::Control* control : ControlsOf<forms::Control>())
        if (control != ui().ucAddPanel1) control->SetEnabled(true);
    for (forms::TextBox* box : ControlsOf<forms::TextBox>()) box->SetLocked(box == ui().txtLedgerId);
    ui().Combo1->SetLocked(false);
}

// Deleted ledgers are found like others. A look-up that is closed without a choice leaves the number of the
// one before. Kept 28.
void Ledger_Master::ucAddPanel1_FindRec() {
    frmSearchAndLookUp& lookUp = forms::Default<frmSearchAndLookUp>();
    lookUp.BaseQuery = "select ledger_ID as [Ledger Id],Name from Ledger_Master";
    SearchLikePrefix = "select ledger_ID as [Ledger Id],Name from Ledger_Master where Name like ";
    lookUp.ui().mylbl->SetCaption(" Enter Ledger Name   ");
    lookUp.Show(forms::vbModal);
    const std::string ledgerId = SearchResultKey;
    ui().txtLedgerId->SetText(ledgerId);
    if (!basic::Trim(ledgerId).empty()) ShowLedger(ledgerId);
}

void Ledger_Master::ShowLedger(const std::string& ledgerId) {
    const ado::RecordsetPtr found = GetResultSet(
        "SELECT  *  FROM ledger_Details, Ledger_Master  WHERE  Ledger_Master.Ledger_ID = "
        "Ledger_Details.Ledger_ID And Ledger_Details.ledger_ID=" +
        ledgerId + " AND Fnncl_Yr = " + shared().FinYear);
    ShowLedgerRecord(*found);  // a ledger without a row in this year raises here
    const basic::Value opening = (*found)["Opening_Bal"], side = (*found)["Bal_Type"];
    if (!opening.IsNull()) ui().Text2->SetText(basic::ToText(opening));
    const bool credit = SideOfLetter(basic::TextOrEmpty(side)) == LedgerSide::Credit;
    if (!side.IsNull()) (credit ? ui().Option1 : ui().Option2)->SetValue(1);
}

void Ledger_Master::ucAddPanel1_NextRec() {
    Page(&ado::Recordset::MoveNext, &ado::Recordset::Eof, "End of File Reached",
         &ado::Recordset::MovePrevious);
}

void Ledger_Master::ucAddPanel1_PrevRec() {
    Page(&ado::Recordset::MovePrevious, &ado::Recordset::Bof, "Begining of File Reached",
         &ado::Recordset::MoveNext);
}

void Ledger_Master::Page(void (ado::Recordset::*move)(), bool (ado::Recordset::*beyond)() const,
                         const char* atEnd, void (ado::Recordset::*back)()) {
    ado::Recordset& ledgers = *LedgerRecordset;
    if (ledgers.RecordCount() == 0) return;
    (ledgers.*move)();
    if ((ledgers.*beyond)()) {
        Tell(atEnd);
        (ledgers.*back)();
    }
    ShowLedgerRecord(ledgers);
    IsNewLedger = false;
}

void Ledger_Master::ShowLedgerRecord(ado::Recordset& record) {
    ui().txtLedgerId->SetText(basic::TextOrEmpty(record["Ledger_ID"]));
    ui().txtLedName->SetText(basic::TextOrEmpty(record["Name"]));
    for (const auto& [box, field] : ShownPartyFields()) Text1(box).SetText(basic::TextOrEmpty(record[field]));
    ui().Combo1->SetText(basic::TextOrEmpty(record["PrimaryGrp"]));
    ShowBalance(record);
}

// Choosing one option lets go of the other.
void Ledger_Master::ShowBalance(ado::Recordset& record) {
    const auto side = SideOfLetter(basic::TextOrEmpty(record["Bal_Type"]));
    if (side) (side == LedgerSide::Credit ? ui().Option1 : ui().Option2)->SetValue(1);
    ui().Text2->SetText(basic::TextOrEmpty(record["Opening_Bal"]));
}

void Ledger_Master::ApplyGroupLayout() {
    const std::string group = ui().Combo1->Text();
    if (IsParty(group)) {
        ui().frSupplier->SetVisible(true);
        SetHeight(PartyHeight);
        if (Top() >= LowestTop) SetTop(PartyTop);
    } else {
        ui().frSupplier->SetVisible(false);
        SetHeight(ui().ucAddPanel1->Height() + HeightAbovePanel);
    }
    ShowStockButton();
}

// For a ledger that stands, however it came to the screen; only such a one has a number. IsNewLedger does not
// tell: it is still set when the first ledger is found, and cleared when an Add is refused. Kept 91.
void Ledger_Master::ShowStockButton() {
    const bool stands = !basic::Trim(ui().txtLedgerId->Text()).empty();
    ui().cmdStkClBal->SetVisible(stands && ui().Combo1->Text() == "Stock in Hand");
}

// Both empty are equal too. Kept 26.
void Ledger_Master::Combo1_Validate() {
    if (ui().txtLedName->Text() != ui().Combo1->Text()) return;
    Tell(LedgerNameIsGroup);
    ui().txtLedName->SetText("");
    ui().txtLedName->SetFocus();
}

void Ledger_Master::Text2_Validate() {
    ui().Text2->SetText(basic::NumberText(basic::PrefixValue(ui().Text2->Text())));
}

void Ledger_Master::cmdStkClBal_Click() {
    forms::Default<frmClosingBal>().Load(basic::ToLong(basic::PrefixValue(ui().txtLedgerId->Text())));
}

bool Ledger_Master::EntryComplete() {
    const std::optional<LedgerFault> fault = MissingOf(Entry());
    if (!fault) return true;
    Tell(fault->Text);
    if (fault->Field == LedgerField::Name) ui().txtLedName->SetFocus();
    if (fault->Field == LedgerField::Group) ui().Combo1->SetFocus();
    if (fault->Field == LedgerField::OpeningBal) ui().Text2->SetFocus();
    return false;
}

LedgerEntry Ledger_Master::Entry() {
    LedgerEntry entry{ui().txtLedName->Text(),
                      ui().Combo1->ListIndex() < 0 ? "" : ui().Combo1->Text(),
                      ui().Text2->Text(),
                      {},
                      {}};
    if (ui().Option2->Value()) entry.BalType = LedgerSide::Debit;
    if (ui().Option1->Value()) entry.BalType = LedgerSide::Credit;
    for (std::size_t box = 1; box < entry.Details.size(); ++box)
        entry.Details[box] = Text1(static_cast<int>(box)).Text();
    return entry;
}

// The number of the new ledger is not put into txtLedgerId, so Update pressed again fails in its statement.
// Kept 25.
void Ledger_Master::AddLedger() {
    if (!EntryComplete()) return;
    try {
        if (LedgerNameTaken(ui().txtLedName->Text())) {
            Tell(LedgerNameInUse);
            return;
        }
        Conn().BeginTrans();
        InsertLedger(Entry());
        Conn().CommitTrans();
        Tell("Ledger Created");
        LedgerRecordset->Requery();
    } catch (const basic::Error& error) {
        Tell(error.Description + "\r   LEDGER NOT CREATED  ");
        RollbackOpen();
        LedgerRecordset->Requery();
        LogError(Name(), error);
    }
}

void Ledger_Master::UpdateLedger() {
    if (!EntryComplete()) return;
    UpdateLedgerRows(ui().txtLedgerId->Text(), Entry());
    Tell("Ledger Updated");
    LedgerRecordset->Requery();
}

void Ledger_Master::DeleteLedger() {
    const std::string ledgerId = ui().txtLedgerId->Text();
    if (basic::Trim(ledgerId).empty()) return Tell(" Please Select record First ");
    OpenConnection(BuildDataFilePath(BooksFile));
    if (LedgerHasVouchers(ledgerId)) return Tell(LedgerInUse);
    if (IsParty(ui().Combo1->Text())) {
        if (!RetireParty()) return;
    } else {
        DeleteLedgerRows(ledgerId, "Group_Head_Name = \"" + ui().txtLedName->Text() +
                                       "\" And Group_ID = " + ledgerId +
                                       " And (GrpType Not In ('B', 'P', 'T') Or GrpType Is Null) And "
                                       "(Parent_Id Is Not Null Or Parent_ID > 0)");
        Tell("Record deleted");
        LedgerRecordset->Requery();
    }
    ClearControls(*this, "");
    LockControls(*this);
}

// A party is marked, not removed, and nothing is told of it. The books as delivered have no year in
// Ledger_Master, so there the statement fails; no column may be added to them, and the user hears what the
// Group Master would do: it marks suppliers only. Kept 29.
bool Ledger_Master::RetireParty() {
    try {
        Conn().Execute("Update Ledger_Master Set Deleted = True Where Ledger_ID=" + ui().txtLedgerId->Text() +
                       " And Fnncl_Yr = " + shared().FinYear);
        return true;
    } catch (const basic::Error& error) {
        const bool supplier = ui().Combo1->Text() == "Suppliers";
        Tell(error.Description + "\r\n\r\nNothing was changed. " +
             (supplier ? "To retire a supplier, delete it in the Group Master."
                       : "A debtor cannot be retired: the Group Master would remove it for good."));
        return false;
    }
}

}  // namespace qm
