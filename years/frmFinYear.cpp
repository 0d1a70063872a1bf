#include "years/frmFinYear.h"

#include "core/modGeneral.h"
#include "years/frmNewFinYear.h"

namespace qm {

void frmFinYear::Wire() {
    ui().lstFinYear->Click = [this] { lstFinYear_Click(); };
    ui().cmdSet->Click = [this] { cmdSet_Click(); };
    ui().cmdAdd->Click = [this] { cmdAdd_Click(); };
    ui().cmdExit->Click = [this] { cmdExit_Click(); };
}

void frmFinYear::Form_Load() {
    years_ = std::make_shared<ado::Recordset>();
    years_->Open("Fnncl_Yr_Mstr", shared().Connection);
}

// Also when frmNewFinYear has closed: the MoveFirst of a forward-only set reads the table again, so the new
// year is seen.
void frmFinYear::Form_Activate() {
    FillYears();
}

void frmFinYear::FillYears() {
    forms::ListBox& list = *ui().lstFinYear;
    list.Clear();
    years_->MoveFirst();
    for (; !years_->Eof(); years_->MoveNext()) {
        list.AddItem(basic::TextOrEmpty((*years_)["Fnncl_Yr"]));
        const int added = list.NewIndex();
        list.SetItemData(added, basic::ToLong((*years_)["Fnncl_Yr_Id"]));
        if (basic::ToBoolean((*years_)["Crrnt_Yr_Flg"])) {
            list.SetListIndex(added);  // its Click makes the current year the remembered one
            list.SetSelected(added, true);
        }
    }
}

// Setting Selected fires no further Click: none of the lines becomes the ListIndex by it.
void frmFinYear::lstFinYear_Click() {
    forms::ListBox& list = *ui().lstFinYear;
    rememberedIndex_ = list.ListIndex();
    for (int i = 0; i < list.ListCount(); ++i) list.SetSelected(i, i == rememberedIndex_);
}

void frmFinYear::cmdSet_Click() {
    const std::string id = std::to_string(ui().lstFinYear->ItemData(rememberedIndex_));
    Conn().Execute("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg=1 Where Fnncl_Yr_Id = " + id);
    Conn().Execute("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg=0 Where Fnncl_Yr_Id <> " + id);
    years_->Requery();
    FillYears();
}

void frmFinYear::cmdAdd_Click() {
    forms::Default<frmNewFinYear>().Show(forms::vbModal);
}

void frmFinYear::cmdExit_Click() {
    years_->Close();
    Unload();
}

std::vector<forms::Form::Command> frmFinYear::CtrlCommands() {
    return {
        {'A', [this] { cmdAdd_Click(); }},
        {'S', [this] { cmdSet_Click(); }},
        {'X', [this] { cmdExit_Click(); }},
    };
}

void frmFinYear::Form_Unload() {
    years_.reset();
}

}  // namespace qm
