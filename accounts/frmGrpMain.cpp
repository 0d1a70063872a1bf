#include "accounts/frmGrpMain.h"

#include <algorithm>

#include "accounts/LedgerVoucherLines.h"
#include "accounts/Ledger_Master.h"
#include "core/Boxes.h"
#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/LedgerRows.h"
#include "core/modGeneral.h"
#include "platform/basic/Text.h"
#include "platform/forms/window/Application.h"
#include "reports/RebuildProgress.h"
#include "vouchers/frmVoucher.h"

namespace qm {
namespace {

constexpr int NameWidth = 3300, FigureWidth = 1650;
constexpr int ChildTextLength = 20;
constexpr int SplitLimit = 500, NarrowestTree = 1600, Gap = 60, HeadRoom = 315;

constexpr const char* LedgerHeads[] = {"Ledger Name", "Opening", "Dr Total", "Cr Total", "Closing"};
constexpr const char* VoucherHeads[] = {"Date", "Narration", "Dr Amount", "Cr Amount", "Balance"};

ado::RecordsetPtr OpenRows(const std::string& sql) {
    auto rows = std::make_shared<ado::Recordset>();
    rows->Open(sql, shared().Connection, ado::adOpenForwardOnly, ado::adLockReadOnly, ado::adCmdText);
    return rows;
}

std::string KeyOf(char kind, const basic::Value& id) {
    return kind + basic::TextOrEmpty(id);
}

// Whatever fails ends the event without a word.
void Quietly(const std::function<void()>& event) {
    try {
        event();
    } catch (const basic::Error&) {
    }
}

}  // namespace

void frmGrpMain::Wire() {
    ui().tvTreeView->NodeClick = [this](forms::Node& node) { tvTreeView_Click(node); };
    ui().tvTreeView->AfterLabelEdit = [this](bool& cancel, const std::string& newText) {
        tvTreeView_AfterLabelEdit(cancel, newText);
    };
    ui().lvListView->ItemClick = [this](const forms::ListLine& line) {
        lvListView_Click(line.Key, line.Text);
    };
    ui().cmdAdd->Click = [this] { cmdAdd_Click(); };
    ui().cmdDelete->Click = [this] { cmdDelete_Click(); };
    ui().cmdExit->Click = [this] { cmdExit_Click(); };
    ui().imgSplitter->MouseDown = [this](int, int, int) { imgSplitter_MouseDown(); };
    ui().imgSplitter->MouseMove = [this](int, int x, int) { imgSplitter_MouseMove(x); };
    ui().imgSplitter->MouseUp = [this](int, int, int) { imgSplitter_MouseUp(); };
}

void frmGrpMain::Form_Load() {
    primaryGroups_ = OpenRows("Select * from Group_Head_Master Where parent_ID = 0");
    ledgers_ = OpenRows(
        "Select * From Group_Head_Master, Ledger_Master, Ledger_Details  Where Parent_ID  <> 0 And "
        "Group_Head_Master.Group_Id = Ledger_Details.Ledger_Id And  Fnncl_yr = " +
        shared().FinYear +
        " And Ledger_Details.Ledger_ID = Ledger_Master.Ledger_ID And Deleted = False  Order By "
        "Group_Head_Master.Group_Id");
    ui().lvListView->AddColumn(LedgerHeads[0], NameWidth);
    for (const char* head : {LedgerHeads[1], LedgerHeads[2], LedgerHeads[3], LedgerHeads[4]})
        ui().lvListView->AddColumn(head, FigureWidth, forms::Alignment::Right);
    Form_Refresh();
}

void frmGrpMain::Form_Unload() {
    primaryGroups_->Close();
    ledgers_->Close();
}

std::vector<forms::Form::Command> frmGrpMain::CtrlCommands() {
    return {
        {'A', [this] { cmdAdd_Click(); }},
        {'D', [this] { cmdDelete_Click(); }},
        {'X', [this] { cmdExit_Click(); }},
    };
}

// The voucher screen calls it too, when it closes.
void frmGrpMain::Form_Refresh() {
    const forms::WaitPointer wait;
    RebuildWithProgress();
    Reread();
    BuildTree();
}

void frmGrpMain::Reread() {
    primaryGroups_->Requery();
    ledgers_->Requery();
}

// A ledger whose group is not one of the first level finds no node to stand under and is left out, and so is
// the second of two rows of one ledger. Kept 36.
void frmGrpMain::BuildTree() {
    forms::TreeView& tree = *ui().tvTreeView;
    tree.Clear();
    for (primaryGroups_->MoveFirst(); !primaryGroups_->Eof(); primaryGroups_->MoveNext())
        tree.Add("", 0, KeyOf('R', (*primaryGroups_)["Group_Id"]),
                 basic::TextOrEmpty((*primaryGroups_)["Group_Head_Name"]));
    for (; !ledgers_->Eof(); ledgers_->MoveNext())
        SkipOnError([&] {
            tree.Add(KeyOf('R', (*ledgers_)["parent_ID"]), forms::tvwChild,
                     KeyOf('C', (*ledgers_)["Group_Head_Master.Group_ID"]),
                     basic::Left(basic::TextOrEmpty((*ledgers_)["Group_Head_Name"]), ChildTextLength));
        });
    tree.SetSorted(true);
}

void frmGrpMain::tvTreeView_Click(const forms::Node& node) {
    Quietly([&] {
        const std::string key = node.Key();
        ui().lblDetails->SetCaption((key.starts_with('R') ? "Group Details : " : "Voucher Details : ") +
                                    node.Text());
        ShowDetailsOf(key);
    });
}

void frmGrpMain::lvListView_Click(const std::string& key, const std::string& text) {
    Quietly([&] {
        if (key.starts_with('C')) ui().lblDetails->SetCaption("Voucher Details : " + text);
        ShowDetailsOf(key);
    });
}

void frmGrpMain::ShowDetailsOf(const std::string& key) {
    ShowDetails(basic::ToInteger(basic::Value(key.substr(1))), key.front());
}

void frmGrpMain::ShowDetails(std::int16_t id, char kind) {
    const forms::WaitPointer wait;
    ui().lvListView->Clear();
    if (kind == 'R') ShowLedgers(id);
    if (kind == 'C') ShowVouchers(id);
    if (kind == 'V') OpenVoucher(id);
}

// The first two widths change places at every showing, also where the heads stay the same. Kept 32.
void frmGrpMain::SetHeads(const char* const (&heads)[5]) {
    forms::ListView& list = *ui().lvListView;
    for (int column = 1; column <= list.ColumnCount(); ++column)
        list.SetColumnText(column, heads[column - 1]);
    const int first = list.ColumnWidth(1);
    list.SetColumnWidth(1, list.ColumnWidth(2));
    list.SetColumnWidth(2, first);
}

void frmGrpMain::ShowLedgers(std::int16_t groupId) {
    SetHeads(LedgerHeads);
    Reread();
    for (ado::Recordset& row = *ledgers_; !row.Eof(); row.MoveNext()) {
        if (basic::NumberOrZero(row["parent_ID"]) != groupId) continue;
        ui().lvListView->AddItem(KeyOf('C', row["Group_Head_Master.Group_ID"]),
                                 basic::TextOrEmpty(row["Group_Head_Name"]),
                                 {ListAmount(row["Opening_Bal"]), ListAmount(row["leddetDrtxntot"]),
                                  ListAmount(row["leddetCrtxntot"]), ListAmount(row["closing_Bal"])});
    }
}

void frmGrpMain::ShowVouchers(std::int16_t ledgerId) {
    SetHeads(VoucherHeads);
    const ado::RecordsetPtr rows = ExecuteRecordset("Select * from tb_ledger" + shared().FinYear +
                                                    " Where ledgercode =" + std::to_string(ledgerId));
    ui().lvListView->SetRowSource(std::make_shared<LedgerVoucherLines>(*rows));
    rows->Close();
}

void frmGrpMain::OpenVoucher(std::int16_t trnNo) {
    frmVoucher& voucher = forms::Default<frmVoucher>();
    voucher.SetCallingForm(*this, [this] { Form_Refresh(); });
    voucher.Load(trnNo);
}

// The ledger is handed on by the text of its node, which is cut: of a long name the ledger screen knows none.
// Kept 34.
void frmGrpMain::cmdAdd_Click() {
    std::string groupName, ledgerName;
    if (const forms::Node* const node = ui().tvTreeView->SelectedItem()) {
        groupName = node->Parent() ? node->Parent()->Text() : node->Text();
        if (node->Parent()) ledgerName = node->Text();
    }
    forms::Default<Ledger_Master>().Load(groupName, ledgerName);
    Reread();
    BuildTree();
}

// A supplier is only marked, whether it has vouchers or not, and nothing is told of it. A "\" in a name
// counts as a level. Kept 35.
void frmGrpMain::cmdDelete_Click() {
    const forms::Node* const node = ui().tvTreeView->SelectedItem();
    if (!node) return;
    const std::string path = node->FullPath(), id = node->Key().substr(1);
    const std::size_t rootLength = path.find('\\');
    if (rootLength == std::string::npos) {
        Tell("Can Not Delete Primary Group");
    } else if (node->Children() > 0) {
        Tell("Can Not Delete Group Has Sub Groups");
    } else if (path.substr(0, rootLength) == "Suppliers") {
        Conn().Execute("Update Ledger_Master Set Deleted = True Where Ledger_ID = " + id, nullptr,
                       ado::adCmdText);
    } else if (LedgerHasVouchers(id)) {
        return Tell(LedgerInUse);
    } else {
        DeleteLedgerRows(id, "Group_ID = " + id +
                                 " And (GrpType Is Null Or GrpType Not In ('B','P','T'))  And (Parent_Id Is "
                                 "Not Null Or Parent_ID > 0)");
        Tell("Record deleted");
    }
    Reread();
    BuildTree();
}

// Only the leaf takes the new name, the ledger keeps its own: the two part company. Kept 33. The label that
// is edited is cut already, and so is the name after it.
void frmGrpMain::tvTreeView_AfterLabelEdit(bool& cancel, const std::string& newText) {
    cancel = true;  // the tree is built anew, and where the statement fails the old label comes back
    const forms::Node* const node = ui().tvTreeView->SelectedItem();
    if (!node) return;
    if (node->FullPath().find('\\') != std::string::npos)
        Conn().Execute("Update group_Head_master Set group_Head_Name = '" + newText +
                       "' Where group_id = " + node->Key().substr(1));
    else
        Tell("Can Not Edit Primary Group");
    Reread();
    BuildTree();
}

void frmGrpMain::imgSplitter_MouseDown() {
    const forms::Image& handle = *ui().imgSplitter;
    ui().picSplitter->Move(handle.Left(), 0, Gap, handle.Height());
    ui().picSplitter->SetVisible(true);
    dragging_ = true;
}

void frmGrpMain::imgSplitter_MouseMove(int x) {
    if (!dragging_) return;
    const int furthest = std::max(SplitLimit, ui().picPanes->Width() - SplitLimit);
    ui().picSplitter->Move(std::clamp(ui().imgSplitter->Left() + x, SplitLimit, furthest), 0, Gap,
                           ui().picSplitter->Height());
}

void frmGrpMain::imgSplitter_MouseUp() {
    if (!dragging_) return;
    dragging_ = false;
    ui().picSplitter->SetVisible(false);
    SizeControls(ui().picSplitter->Left());
}

void frmGrpMain::Form_Resize() {
    SizeControls(ui().imgSplitter->Left());
}

void frmGrpMain::SizeControls(int split) {
    const int tree = std::max(split, NarrowestTree), list = tree + Gap;
    const int height = ui().picPanes->Height(), below = std::max(0, height - HeadRoom);
    const int listWidth = std::max(0, ui().picPanes->Width() - list);
    ui().lblGroups->Move(0, 0, tree, HeadRoom);
    ui().tvTreeView->Move(0, HeadRoom, tree, below);
    ui().imgSplitter->Move(tree, 0, Gap, height);
    ui().lblDetails->Move(list, 0, listWidth, HeadRoom);
    ui().lvListView->Move(list, HeadRoom, listWidth, below);
}

}  // namespace qm
