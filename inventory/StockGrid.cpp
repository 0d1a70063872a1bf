#include "inventory/StockGrid.h"

#include "core/DBCode.h"
#include "core/MsgBox.h"
#include "core/modGeneral.h"
#include "inventory/PickedItems.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Number.h"
#include "shell/EntryChecks.h"

namespace qm {
namespace {

constexpr int QtyLength = 9, NoteLength = 99;  // characters

}  // namespace

void StockGrid::Wire(const forms::PictureBox& picButton) const {
    const StockGrid self = *this;
    grid_->SetCols(Columns);
    grid_->SetCol(NameCol);  // the columns before it are hidden
    grid_->SetEditable(true);
    grid_->SetCellButtonPicture(picButton.Picture());
    grid_->BeforeEdit = [self](int row, int col, bool& cancel) { self.BeforeEdit(row, col, cancel); };
    grid_->KeyPressEdit = [](int, int col, int& keyAscii) {
        if (col == QtyCol) KeepFigures(keyAscii);
    };
    grid_->ValidateEdit = [self](int, int col, bool& cancel) {
        if (col == QtyCol) cancel = !IsQuantity(self.grid_->EditText());
    };
    grid_->CellButtonClick = [self](int row, int) { self.AddPicked(row); };
}

void StockGrid::Setup(int qtyWidth) const {
    grid_->SetRows(1);
    grid_->SetRows(2);
    const char* const headings[] = {"", "", "Item Description", "Unit Price", "Qty.", "Remarks"};
    for (int col = 0; col < Columns; ++col) grid_->SetTextMatrix(0, col, headings[col]);
    grid_->SetColBoolean(MarkCol, true);
    grid_->SetColHidden(MarkCol, true);
    grid_->SetColHidden(ItemCol, true);
    grid_->SetColWidth(NameCol, 4000);
    grid_->SetGrowingCol(NameCol);
    grid_->SetColComboList(NameCol, "...");
    grid_->SetColWidth(PriceCol, 1500);
    grid_->SetColWidth(QtyCol, qtyWidth);
    grid_->SetColFormat(QtyCol, "#,##,###");
    grid_->SetColWidth(NoteCol, 4000);
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
    cancel = Text(row, ItemCol).empty() || col == PriceCol || (col == QtyCol && IsSaved(row));
    if (col == QtyCol) grid_->SetEditMaxLength(QtyLength);
    if (col == NoteCol) grid_->SetEditMaxLength(NoteLength);
}

// From the empty row only. An item that is there already is told, and the next one tried.
void StockGrid::AddPicked(int row) const {
    if (!Text(row, ItemCol).empty()) return;
    const std::vector<PickedItem> picked = PickItems();
    std::unordered_set<std::string> there = Items();
    for (const PickedItem& item : picked) {
        const std::string id = basic::NumberText(item.Id);
        if (!there.insert(id).second) {
            MsgBox("Item '" + item.Name + "' is already present in the list\r\n\r\nCannot add", vbInformation,
                   AppTitle);
            continue;
        }
        const int entry = EntryRow();
        grid_->SetTextMatrix(entry, ItemCol, id);
        grid_->SetTextMatrix(entry, NameCol, item.Name);
        grid_->SetTextMatrix(entry, PriceCol, basic::NumberText(item.Price));
        grid_->AddItem("", entry + 1);
    }
}

std::unordered_set<std::string> StockGrid::Items() const {
    std::unordered_set<std::string> items;
    for (int row = 1; row < grid_->Rows(); ++row) items.insert(Text(row, ItemCol));
    return items;
}

bool StockGrid::Remove(int row, const std::string& done) const {
    const std::string item = "'" + Text(row, NameCol) + "'";
    if (MsgBox("Remove Item " + item + "\r\n\r\nAre you sure ?", vbYesNo + vbInformation, AppTitle) != vbYes)
        return false;
    if (IsSaved(row)) {
        // The doubled word is the system's own.
        MsgBox("Item Item " + item + " has been " + done + " \r\n\r\nCannot remove", vbInformation, AppTitle);
        return false;
    }
    grid_->RemoveItem(row);
    return true;
}

void StockGrid::Refuse(int row, int col, const std::string& message) const {
    MsgBox(message, vbInformation, AppTitle);
    grid_->Select(row, col);
    grid_->SetFocus();
}

}  // namespace qm
