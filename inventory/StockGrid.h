#pragma once

#include <optional>
#include <string>

#include "inventory/ItemGrid.h"
#include "platform/basic/Value.h"
#include "platform/forms/controls/Label.h"

namespace qm {

// The grid in which goods are received and issued. A saved row bears a key, the number of its movement; a row
// that the user has edited bears a mark.
class StockGrid : public ItemGrid {
  public:
    enum Column { MarkCol, ItemCol, NameCol, PriceCol, QtyCol, NoteCol, Columns };

    StockGrid(forms::VSFlexGrid& grid, int footRows)
        : ItemGrid(grid, {MarkCol, ItemCol, NameCol, PriceCol, QtyCol, NoteCol}, footRows) {}

    // Once for each window; the control holds the picture of the item button.
    void Prepare(const forms::PictureBox& picButton) const;
    // Lays the empty grid out, with the entry row as its last.
    void Setup(int qtyWidth) const;
    // Adds the rows of a movement above the entry row, which is the last. The field is the one of the
    // quantity. Gives the movement's date, none where it has no rows.
    std::optional<basic::Date> Fill(const std::string& sql, const char* qtyField) const;

    bool IsSaved(int row) const { return !grid_->CellData(row, NameCol).IsNull(); }

    // What the events of the same names do in both screens.
    void BeforeEdit(int row, int col, bool& cancel) const;
    void ValidateEdit(int col, bool& cancel) const;
    void CellButtonClick(int row) const;  // from an empty row only

    // Asks whether the row's item is to go, and removes it unless it is saved. `done` says what happened to a
    // saved one: "received", "issued". True if the row is gone.
    bool Remove(int row, const std::string& done) const;
};

}  // namespace qm
