#include "screens/Pictures.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>

#include "accounts/Ledger_Master.h"
#include "accounts/frmGrpMain.h"
#include "core/DBCode.h"
#include "core/modGeneral.h"
#include "inventory/ItemMaster.h"
#include "inventory/frmItemList.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "purchasing/frmPO.h"
#include "purchasing/frmPOReceipt.h"
#include "reports/frmLedger.h"
#include "reports/frmPartyLedger.h"
#include "screens/PictureBooks.h"
#include "screens/ScreenTable.h"
#include "screens/Walk.h"
#include "shell/frmNewMenu.h"
#include "shell/frmSearchAndLookUp.h"
#include "vouchers/frmDayBook.h"
#include "vouchers/frmVoucher.h"
#include "years/frmClosingBal.h"
#include "years/frmNewFinYear.h"

namespace qm {
namespace {

namespace fs = std::filesystem;

void WritePicture(forms::Form& form, const fs::path& folder) {
    const long scale = std::lround(form.PixelDensity() * 100);
    form.WritePicture(folder / (form.Name() + '@' + std::to_string(scale) + ".png"));
}

void ShowMasters(forms::Form& form) {
    int down = forms::vbKeyDown;
    dynamic_cast<frmNewMenu&>(form).ui().vsFinOptions->KeyDown.Fire(down, 0);
}

void ListSuppliers(forms::Form& form) {
    forms::TreeView& tree = *dynamic_cast<frmGrpMain&>(form).ui().tvTreeView;
    forms::Node& node =
        tree.Item("R" + basic::ToText(FetchFirstColumn("Select Group_Id From Group_Head_Master Where "
                                                       "Group_Head_Name = 'Suppliers'")
                                          .at(0)));
    node.SetSelected(true);
    node.setExpanded(true);
    tree.NodeClick.Fire(node);
}

void ListTheYear(forms::Form& form) {
    auto& ui = dynamic_cast<frmDayBook&>(form).ui();
    ui.cboFilterFld->SetText("Date Range");
    ui.dtpDateFrom->SetValue(basic::ReadDate("01-Apr-" + shared().FinYear));
    ui.cmdOk->Click.Fire();
}

void ShowOrder(forms::Form& form) {
    auto& ui = dynamic_cast<frmPO&>(form).ui();
    if (ui.cmbSuppliers->ListCount() == 0) return;
    ui.cmbSuppliers->SetListIndex(0);
    if (ui.tvPO->Count() < 2) return;
    ui.tvPO->Item(std::to_string(Highest("PoNumber", "tblPO")) + "PO").SetSelected(true);
    ui.tvPO->Click.Fire();
}

void ShowFirstItem(forms::Form& form) {
    dynamic_cast<ItemMaster&>(form).ui().ucAddPanel1->NextRec.Fire();
}

// Screens that open empty are drawn with records, as a user calls them up.
struct Filled {
    std::string_view Form;
    void (*Open)();  // null: as always
    void (*Fill)(forms::Form&);
};

constexpr Filled FilledScreens[] = {
    {"frmGrpMain", nullptr, ListSuppliers},
    {"Ledger_Master", [] { forms::Default<Ledger_Master>().Load("Suppliers", ""); }, nullptr},
    {"frmVoucher", [] { forms::Default<frmVoucher>().Load(Highest("LedgerTrnNo", "tb_Ledger")); }, nullptr},
    {"frmTPL", nullptr, ViewResults},
    {"frmDayBook", nullptr, ListTheYear},
    {"ItemMaster", nullptr, ShowFirstItem},
    {"frmPO", nullptr, ShowOrder},
};

void WriteScreen(const ScreenEntry& screen, const std::function<void(forms::Form&)>& picture) {
    const auto* filled = std::find_if(std::begin(FilledScreens), std::end(FilledScreens),
                                      [&](const Filled& each) { return each.Form == screen.Form; });
    if (filled == std::end(FilledScreens)) return Walk({{std::string(screen.Form), picture}}, screen.Open);
    const auto visit = [&](forms::Form& form) {
        if (filled->Fill) filled->Fill(form);
        picture(form);
    };
    Walk({{std::string(screen.Form), visit}}, filled->Open ? filled->Open : screen.Open);
}

// The screens that others open. A receipt needs an order that it is made against.
void WriteInnerPictures(const std::function<void(forms::Form&)>& picture) {
    Walk({{"frmNewFinYear", picture}}, Open<frmNewFinYear>);
    Walk({{"frmClosingBal", picture}}, [] { forms::Default<frmClosingBal>().Load(0); });
    forms::Default<frmSearchAndLookUp>().BaseQuery =
        "select ledger_ID as [Ledger Id],Name from Ledger_Master";
    Walk({{"frmSearchAndLookUp", picture}}, Open<frmSearchAndLookUp>);
    Walk({{"frmItemList", picture}}, [] { forms::Default<frmItemList>().Load(); });
    if (const auto number = Highest("PoNumber", "tblPO"); number > 0)
        Walk({{"frmPOReceipt", picture}}, [number] { forms::Default<frmPOReceipt>().Load(number); });
}

}  // namespace

void WriteAllPictures(const std::string& folder) {
    const fs::path to = Made(folder);
    const PictureBooks books;
    const auto picture = [&](forms::Form& form) { WritePicture(form, to); };
    const auto menu = [&](forms::Form& form) {
        ShowMasters(form);
        picture(form);
    };
    Walk({{"frmNewMenu", menu}}, [] { forms::Default<frmNewMenu>().Load(ScreenTable()); });
    for (const ScreenEntry& screen : ScreenTable()) WriteScreen(screen, picture);
    Walk({{"frmPartyLedger", PrintAllLedgers}, Page(picture)}, Open<frmPartyLedger>);
    WriteInnerPictures(picture);
}

}  // namespace qm
