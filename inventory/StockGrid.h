#pragma once

#include <optional>
#include <string>
#include <unordered_set>

#include "platform/basic/Value.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/grid/VSFlexGrid.h"

namespace qm {

// The grid in which goods are received and issued, from the top: the headings, a row for each item, the entry
// row on which the next item lands, the screen's total rows if it has any. A saved row bears a key, the
// number of its movement; a row that the user has edited bears a mark. Cheap to make where it is needed.
class StockGrid {
  public:
    enum Column { MarkCol, ItemCol, NameCol, PriceCol, QtyCol, NoteCol, Columns };

    StockGrid(forms::VSFlexGrid& grid, int totalRows) : grid_(&grid), totalRows_(totalRows) {}

    // Once for each window: sets the handlers that all such grids share. The screen sets the others.
    void Wire(const forms::PictureBox& picButton) const;  // which holds the picture of the item button
    // Lays the empty grid out, with the entry row as its last.
    void Setup(int qtyWidth) const;
    // Adds the rows of a movement above the entry row, which is the last. The field is the one of the
    // quantity. Gives the movement's date, none where it has no rows.
    std::optional<basic::Date> Fill(const std::string& sql, const char* qtyField) const;

    int EntryRow() const { return grid_->Rows() - 1 - totalRows_; }  // items stand in rows 1 to the one above
    bool IsSaved(int row) const { return !grid_->CellData(row, NameCol).IsNull(); }
    bool IsMarked(int row) const { return grid_->CellChecked(row, MarkCol); }
    void Mark(int row, bool mark) const { grid_->SetCellChecked(row, MarkCol, mark); }
    const std::string& Text(int row, int col) const { return grid_->TextMatrix(row, col); }
    double Number(int row, int col) const { return grid_->ValueMatrix(row, col); }

    // Asks whether the row's item is to go, and removes it unless it is saved. `done` says what happened to a
    // saved one: "received", "issued". True if the row is gone.
    bool Remove(int row, const std::string& done) const;
    // Says what the cell lacks and goes there.
    void Refuse(int row, int col, const std::string& message) const;

  private:
    void BeforeEdit(int row, int col, bool& cancel) const;
    void AddPicked(int row) const;
    std::unordered_set<std::string> Items() const;  // those that have a row

    forms::VSFlexGrid* grid_;
    int totalRows_;
};

}  // namespace qm
