#include "purchasing/OrderGrid.h"

#include "core/Boxes.h"
#include "core/modGeneral.h"
#include "inventory/PickedItems.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"

namespace qm {

void OrderGrid::Setup() const {
    grid_->SetCols(Columns);
    const char* const headings[] = {"", "", "Item Code", "Item Description", "Unit Rate", "Qty."};
    for (int col = 0; col < Columns; ++col) grid_->SetTextMatrix(0, col, headings[col]);
    grid_->SetCellFontBold(0, 0, 0, QtyCol, true);
    grid_->SetCellAlignment(0, 0, 0, QtyCol, forms::Alignment::Center);
    grid_->SetColBoolean(MarkCol, true);
    for (const int hidden : {MarkCol, OrderCol, ItemCol}) grid_->SetColHidden(hidden, true);
    grid_->SetColWidth(NameCol, 4000);
    grid_->SetGrowingCol(NameCol);
    grid_->SetColComboList(NameCol, "...");
    for (const int figures : {RateCol, QtyCol}) {
        grid_->SetColWidth(figures, 1500);
        grid_->SetColAlignment(figures, forms::Alignment::Right);
    }
    grid_->SetEditable(true);
    grid_->SetCol(NameCol);  // the columns before it are hidden
}

void OrderGrid::Empty() const {
    grid_->SetRows(1);
    grid_->SetRows(2);
}

void OrderGrid::Fill(std::int32_t orderNo) const {
    ado::Recordset lines;
    lines.Open("Select * From " + YearTable("tblPODet") + " Where PoDetPoNo = " + std::to_string(orderNo),
               shared().Connection);
    for (; !lines.Eof(); lines.MoveNext()) {
        const int row = grid_->Rows() - 1;
        const std::string item = basic::TextOrEmpty(lines["PoDetItemID"]);
        grid_->SetTextMatrix(row, OrderCol, basic::TextOrEmpty(lines["PoDetPoNo"]));
        grid_->SetTextMatrix(row, ItemCol, item);
        grid_->SetTextMatrix(row, NameCol, basic::TextOrEmpty(lines["PoDetItemDesc"]));
        const ado::RecordsetPtr rate =
            Conn().Execute("Select Unit_Price From " + YearTable("ItemMaster") + " Where Item_ID = " + item);
        if (!rate->Eof()) grid_->SetTextMatrix(row, RateCol, basic::TextOrEmpty((*rate)["Unit_Price"]));
        grid_->SetTextMatrix(row, QtyCol, basic::TextOrEmpty(lines["PoDetQtyOrder"]));
        grid_->SetRows(row + 2);
    }
}

std::string OrderGrid::Number(int row, int col) const {
    return basic::NumberText(grid_->ValueMatrix(row, col));
}

bool OrderGrid::IsFixed(int row, int col) const {
    const bool hasItem = !Text(row, ItemCol).empty();
    return col == RateCol || (col == NameCol && hasItem) || (col == QtyCol && !hasItem);
}

void OrderGrid::Remove(int row) const {
    if (IsSaved(row))
        grid_->SetRowHidden(row, true);
    else
        grid_->RemoveItem(row);
}

std::unordered_map<std::string, int> OrderGrid::RowsByItem() const {
    std::unordered_map<std::string, int> rows;
    for (int row = 1; row < grid_->Rows(); ++row) rows.emplace(Text(row, ItemCol), row);
    return rows;
}

void OrderGrid::AddPicked() const {
    const std::vector<PickedItem> picked = PickItems();
    auto rows = RowsByItem();
    for (const PickedItem& item : picked) {
        const std::string id = basic::NumberText(item.Id);
        if (const auto there = rows.find(id); there != rows.end()) {
            if (!IsRemoved(there->second)) Tell("Item '" + item.Name + "' already added !!!");
            continue;
        }
        if (!Text(grid_->Rows() - 1, ItemCol).empty()) grid_->SetRows(grid_->Rows() + 1);
        const int row = grid_->Rows() - 1;
        rows.emplace(id, row);
        grid_->SetTextMatrix(row, ItemCol, id);
        grid_->SetTextMatrix(row, NameCol, item.Name);
        grid_->SetTextMatrix(row, RateCol, basic::NumberText(item.Price));
        grid_->SetRows(row + 2);
    }
}

}  // namespace qm
