#include "purchasing/OrderGrid.h"

#include "core/Boxes.h"
#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {

void OrderGrid::SetupPOGrid() const {
    grid_->SetCols(Columns);
    const ItemHeading headings[] = {{.Text = "", .Hidden = true},
                                    {.Text = "", .Hidden = true},
                                    {.Text = "Item Code", .Hidden = true},
                                    {"Item Description", 4000},
                                    {.Text = "Unit Rate", .Width = 1500, .Figures = true},
                                    {.Text = "Qty.", .Width = 1500, .Figures = true}};
    SetHeadings(headings);
    grid_->SetCellFontBold(0, 0, 0, QtyCol, true);
    grid_->SetCellAlignment(0, 0, 0, QtyCol, forms::Alignment::Center);
    grid_->SetColComboList(NameCol, "...");
    grid_->SetEditable(true);
    grid_->SetCol(NameCol);  // the columns before it are hidden
}

void OrderGrid::Fill(std::int32_t orderNo) const {
    ado::Recordset lines;
    lines.Open("Select * From tblPODet" + shared().FinYear + " Where PoDetPoNo = " + std::to_string(orderNo),
               shared().Connection);
    for (; !lines.Eof(); lines.MoveNext()) {
        const int row = grid_->Rows() - 1;
        const std::string item = basic::TextOrEmpty(lines["PoDetItemID"]);
        grid_->SetTextMatrix(row, OrderCol, basic::TextOrEmpty(lines["PoDetPoNo"]));
        grid_->SetTextMatrix(row, ItemCol, item);
        grid_->SetTextMatrix(row, NameCol, basic::TextOrEmpty(lines["PoDetItemDesc"]));
        const ado::RecordsetPtr rate = Conn().Execute("Select Unit_Price From ItemMaster" + shared().FinYear +
                                                      " Where Item_ID = " + item);
        if (!rate->Eof()) grid_->SetTextMatrix(row, RateCol, basic::TextOrEmpty((*rate)["Unit_Price"]));
        grid_->SetTextMatrix(row, QtyCol, basic::TextOrEmpty(lines["PoDetQtyOrder"]));
        grid_->SetRows(row + 2);
    }
}

std::string OrderGrid::Figure(int row, int col) const {
    return basic::NumberText(Number(row, col));
}

bool OrderGrid::IsFixed(int row, int col) const {
    return col == RateCol || (col == NameCol && HasItem(row)) || (col == QtyCol && !HasItem(row));
}

void OrderGrid::Remove(int row) const {
    if (IsSaved(row))
        grid_->SetRowHidden(row, true);
    else
        grid_->RemoveItem(row);
}

void OrderGrid::AddPicked() const {
    ItemGrid::AddPicked(Landing::FreeRow, [&](int row, const std::string& name) {
        if (!IsRemoved(row)) Tell("Item '" + name + "' already added !!!");
    });
}

}  // namespace qm
