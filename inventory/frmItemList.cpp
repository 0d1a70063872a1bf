#include "inventory/frmItemList.h"

#include <utility>

#include "core/GeneralUtils.h"
#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

enum { TickCol, CodeCol, NameCol, RateCol, Columns };

}  // namespace

void frmItemList::Wire() {
    ui().cmbSearchList->Click = [this] { cmbSearchList_Click(); };
    ui().txtSearchText->Change = [this] { txtSearchText_Change(); };
    ui().vsItems->BeforeEdit = [](int, int col, bool& cancel) { vsItems_BeforeEdit(col, cancel); };
    ui().vsItems->MouseMove = [this](int, int, int, int) { vsItems_MouseMove(); };
    ui().cmdOK->Click = [this] { cmdOK_Click(); };
}

void frmItemList::Load() {
    PrepareGrid();
    FillGrid();
    forms::ComboBox& list = *ui().cmbSearchList;
    list.Clear();
    for (const char* line : {"", "Item ID", "Item Name"}) list.AddItem(line);
    Show(forms::vbModal);
}

frmItemList::Collection<std::string> frmItemList::SelItems() {
    return std::exchange(names_, std::nullopt);
}
frmItemList::Collection<double> frmItemList::SelItemIds() {
    return std::exchange(ids_, std::nullopt);
}
frmItemList::Collection<double> frmItemList::SelItemPrice() {
    return std::exchange(prices_, std::nullopt);
}

void frmItemList::PrepareGrid() {
    forms::VSFlexGrid& grid = *ui().vsItems;
    grid.SetCols(Columns);
    const char* const headings[] = {"Select", "Item Code", "Item Name", "Unit Rate"};
    for (int col = 0; col < Columns; ++col) grid.SetTextMatrix(0, col, headings[col]);
    grid.SetColBoolean(TickCol, true);
    grid.SetColWidth(NameCol, 4000);
    grid.SetGrowingCol(NameCol);
    grid.SetEditable(true);
}

// The ticks go with the rows. What is typed goes into the statement as it stands: an apostrophe or an opening
// bracket makes it fail, and the list then stays empty. Kept 63.
void frmItemList::FillGrid() {
    forms::VSFlexGrid& grid = *ui().vsItems;
    grid.SetRows(1);
    grid.SetExplorerSort(true);
    std::string sql =
        "Select CStr(Item_ID) As ItemID, Item_Name, Unit_Price From ItemMaster" + shared().FinYear;
    const std::string wanted = ui().txtSearchText->Text();
    if (ui().cmbSearchList->Text() == "Item ID")
        sql += " Where CStr(Item_ID) Like '" + wanted + "%'";
    else if (ui().cmbSearchList->Text() == "Item Name")
        sql += " Where UCase(Item_Name) Like '" + basic::UCase(wanted) + "%'";
    ado::Recordset items;
    items.Open(sql, shared().Connection);
    const ado::Field code = items.Fields("ItemID"), name = items.Fields("Item_Name"),
                     rate = items.Fields("Unit_Price");
    for (; !items.Eof(); items.MoveNext()) {
        const int row = grid.Rows();
        grid.SetRows(row + 1);
        grid.SetTextMatrix(row, CodeCol, basic::TextOrEmpty(code.Value()));
        grid.SetTextMatrix(row, NameCol, basic::TextOrEmpty(name.Value()));
        grid.SetTextMatrix(row, RateCol, basic::TextOrEmpty(rate.Value()));
    }
    items.Close();
    for (const int col : {TickCol, CodeCol, RateCol}) grid.AutoSize(col, col);
}

void frmItemList::cmbSearchList_Click() {
    FillGrid();
}

// On the empty line of the list, the typed text narrows nothing.
void frmItemList::txtSearchText_Change() {
    if (!ui().cmbSearchList->Text().empty()) FillGrid();
}

void frmItemList::vsItems_BeforeEdit(int col, bool& cancel) {
    cancel = col != TickCol;
}

void frmItemList::vsItems_MouseMove() {
    ui().vsItems->SetToolTipText(ui().vsItems->MouseRow() == 0 ? "Click on the headers to sort" : "");
}

void frmItemList::cmdOK_Click() {
    const forms::VSFlexGrid& grid = *ui().vsItems;
    names_.emplace();
    ids_.emplace();
    prices_.emplace();
    for (int row = 1; row < grid.Rows(); ++row) {
        if (!grid.CellChecked(row, TickCol)) continue;
        names_->push_back(grid.TextMatrix(row, NameCol));
        ids_->push_back(grid.ValueMatrix(row, CodeCol));
        prices_->push_back(grid.ValueMatrix(row, RateCol));
    }
    Unload();
}

}  // namespace qm
