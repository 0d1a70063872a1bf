#include "inventory/StockGrid.h"

#include "core/Boxes.h"
#include "core/DBCode.h"
#include "core/Masks.h"
#include "core/modGeneral.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"
#include "shell/EntryChecks.h"

namespace qm {

void StockGrid::Prepare(const forms::PictureBox& picButton) const {
    grid_->SetCols(Columns);
    grid_->SetCol(NameCol);  // the columns before it are hidden
    grid_->SetEditable(true);
    grid_->SetCellButtonPicture(picButton.Picture());
}

void StockGrid::Setup(int qtyWidth) const {
    Empty();
    const ItemHeading headings[] = {{.Text = "", .Hidden = true}, {.Text = "", .Hidden = true},
                                    {"Item Description", 4000},   {"Unit Price", 1500},
                                    {"Qty.", qtyWidth},           {"Remarks", 4000}};
    SetHeadings(headings);
    grid_->SetColComboList(NameCol, "...");
    grid_->SetColFormat(QtyCol, QuantityMask);
}

std::optional<basic::Date> StockGrid::Fill(const std::string& sql, const char* qtyField) const {
    ado::Recordset rows;
    rows.Open(sql, shared().Connection);
    std::optional<basic::Date> date;
    if (!rows.Eof()) date = basic::ToDate(DateNumber(rows["ItemLedTrnDate"]));
    for (; !rows.Eof(); rows.MoveNext()) {
        const int row = grid_->Rows() - 1;
        const auto show = [&](Column col, const char* field) {
            grid_->SetTextMatrix(row, col, basic::TextOrEmpty(rows[field]));
        };
        show(ItemCol, "ItemLedItemID");
        grid_->SetCellData(row, NameCol, rows["ItemLedTrnNo"]);
        show(NameCol, "ItemLedItemDesc");
        show(PriceCol, "ItemLedUnitPrice");
        show(QtyCol, qtyField);
        show(NoteCol, "ItemLedNote");
        grid_->SetRows(row + 2);
    }
    rows.Close();
    return date;
}

void StockGrid::BeforeEdit(int row, int col, bool& cancel) const {
    if (col == NameCol) return;
    cancel = !HasItem(row) || col == PriceCol || (col == QtyCol && IsSaved(row));
    LimitLength(col);
}

void StockGrid::ValidateEdit(int col, bool& cancel) const {
    if (col == QtyCol) cancel = !IsQuantity(grid_->EditText());
}

void StockGrid::CellButtonClick(int row) const {
    if (HasItem(row)) return;
    AddPicked(Landing::LastRow, [](int, const std::string& name) {
        Tell("Item '" + name + "' is already present in the list\r\n\r\nCannot add");
    });
}

bool StockGrid::Remove(int row, const std::string& done) const {
    const std::string item = "'" + Text(row, NameCol) + "'";
    if (!Ask("Remove Item " + item + "\r\n\r\nAre you sure ?")) return false;
    if (IsSaved(row)) {
        // The doubled word is the system's own. Kept 62.
        Tell("Item Item " + item + " has been " + done + " \r\n\r\nCannot remove");
        return false;
    }
    grid_->RemoveItem(row);
    return true;
}

}  // namespace qm
