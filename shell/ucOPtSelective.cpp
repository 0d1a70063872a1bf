#include "shell/ucOPtSelective.h"

#include "core/ErrorModule.h"
#include "platform/basic/Number.h"

namespace qm {

ucOPtSelective::ucOPtSelective(QWidget* parent) : UserControlOf(parent), OkClick(this), CancelClick(this) {
    EnterFocus = [this] { UserControl_EnterFocus(); };
    ui().optAll->Click = [this] { optAll_Click(); };
    ui().optSel->Click = [this] { optSel_Click(); };
    ui().cmdOk->Click = [this] { cmdOk_Click(); };
    ui().cmdCancel->Click = [this] { cmdCancel_Click(); };
}

// What fails is passed over: the record set is often open already.
void ucOPtSelective::UserControl_EnterFocus() {
    forms::ListBox& list = *ui().lstItem;
    if (!rows_) return;
    SkipOnError([&] { rows_->Open(); });
    if (list.ListCount() > 0) return;
    const bool onlyCancel = !ui().optAll->Enabled();
    ui().optAll->SetEnabled(true);
    ui().optSel->SetEnabled(true);
    if (onlyCancel) ui().optAll->SetFocus();
    SkipOnError([&] {
        if (rows_->Bof()) return;
        for (; !rows_->Eof(); rows_->MoveNext()) {
            SkipOnError([&] { list.AddItem(basic::ToText((*rows_)[shownField_])); });
            SkipOnError([&] { list.SetItemData(list.NewIndex(), basic::ToLong((*rows_)[keyField_])); });
        }
    });
    list.SetEnabled(false);
    SkipOnError([&] { rows_->Close(); });
}

// The list stays as it is: disabled after a fill. Kept 86.
void ucOPtSelective::optAll_Click() {
    ui().lstItem->SelectEach(true);
    ui().cmdOk->SetEnabled(true);
}

void ucOPtSelective::optSel_Click() {
    ui().lstItem->SelectEach(false);
    ui().cmdOk->SetEnabled(true);
    ui().lstItem->SetEnabled(true);
}

// Disabled by its own click: enabled again only by a choice of all or selected. Kept 86.
void ucOPtSelective::cmdOk_Click() {
    const forms::ListBox& list = *ui().lstItem;
    const std::vector<int> chosen = list.SelectedLines();
    selected_.assign(chosen.size() + 1, 0);
    ui().cmdOk->SetEnabled(false);
    for (std::size_t slot = 0; slot < chosen.size(); ++slot)
        selected_[slot] = basic::ToInteger(list.ItemData(chosen[slot]));
    OkClick.Fire();
}

}  // namespace qm
