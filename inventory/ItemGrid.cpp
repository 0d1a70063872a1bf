#include "inventory/ItemGrid.h"

#include <unordered_map>

#include "core/Boxes.h"
#include "inventory/PickedItems.h"
#include "platform/basic/Number.h"
#include "shell/EntryChecks.h"

namespace qm {
namespace {

constexpr int QtyLength = 9, NoteLength = 99;  // characters

}  // namespace

void ItemGrid::Empty() const {
    grid_->SetRows(1);
    grid_->SetRows(2);
}

void ItemGrid::SetHeadings(std::span<const ItemHeading> headings) const {
    for (int col = 0; const ItemHeading& heading : headings) {
        grid_->SetTextMatrix(0, col, heading.Text);
        if (heading.Width > 0) grid_->SetColWidth(col, heading.Width);
        if (heading.Hidden) grid_->SetColHidden(col, true);
        if (heading.Figures) grid_->SetColAlignment(col, forms::Alignment::Right);
        ++col;
    }
    grid_->SetColBoolean(at_.Mark, true);
    grid_->SetGrowingCol(at_.Name);
}

void ItemGrid::FilterKey(int col, int& keyAscii) const {
    if (col == at_.Qty) KeepFigures(keyAscii);
}

void ItemGrid::LimitLength(int col) const {
    if (col == at_.Qty) grid_->SetEditMaxLength(QtyLength);
    if (col == at_.Note) grid_->SetEditMaxLength(NoteLength);
}

bool ItemGrid::Refuse(int row, int col, const std::string& message) const {
    Tell(message);
    grid_->Select(row, col);
    grid_->SetFocus();
    return false;
}

void ItemGrid::AddPicked(Landing landing,
                         const std::function<void(int row, const std::string& name)>& present) const {
    const std::vector<PickedItem> picked = PickItems();
    std::unordered_map<std::string, int> rows;  // the first of each item
    for (int row = 1; row < grid_->Rows(); ++row) rows.emplace(Text(row, at_.Item), row);
    for (const PickedItem& item : picked) {
        const std::string id = basic::NumberText(item.Id);
        if (const auto there = rows.find(id); there != rows.end()) {
            present(there->second, item.Name);
            continue;
        }
        if (landing == Landing::FreeRow && HasItem(EntryRow())) grid_->AddItem("", EntryRow() + 1);
        const int row = EntryRow();
        rows.emplace(id, row);
        grid_->SetTextMatrix(row, at_.Item, id);
        grid_->SetTextMatrix(row, at_.Name, item.Name);
        grid_->SetTextMatrix(row, at_.Price, basic::NumberText(item.Price));
        grid_->AddItem("", row + 1);
    }
}

}  // namespace qm
