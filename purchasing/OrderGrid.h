#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "platform/forms/grid/VSFlexGrid.h"

namespace qm {

// The lines of a purchase order in their grid: the heading, a row for each line, the empty entry row. A saved
// line bears its order's number, and a mark once it was edited; one that was removed stays hidden until the
// save. Cheap to make where it is needed.
class OrderGrid {
  public:
    enum Column { MarkCol, OrderCol, ItemCol, NameCol, RateCol, QtyCol, Columns };

    explicit OrderGrid(forms::VSFlexGrid& grid) : grid_(&grid) {}

    void Setup() const;
    void Empty() const;  // the heading and the entry row
    // Adds the lines of an order above the entry row, with the items' rates of today.
    void Fill(std::int32_t orderNo) const;

    int LastLine() const { return grid_->Rows() - 2; }  // lines stand in rows 1 to this
    bool IsSaved(int row) const { return !Text(row, OrderCol).empty(); }
    bool IsRemoved(int row) const { return grid_->RowHidden(row); }
    bool IsMarked(int row) const { return grid_->CellChecked(row, MarkCol); }
    void Mark(int row) const { grid_->SetCellChecked(row, MarkCol, true); }
    const std::string& Text(int row, int col) const { return grid_->TextMatrix(row, col); }
    std::string Number(int row, int col) const;  // as it goes into a statement; blank is 0

    // Whether the cell's text belongs to the line as it stands: an item cannot be changed once it is chosen,
    // its rate never, and a quantity needs an item.
    bool IsFixed(int row, int col) const;
    void Remove(int row) const;  // a saved line is hidden, and deleted at the save
    // Asks for items and adds those that are not there. One that waits hidden to be deleted stays so.
    void AddPicked() const;

  private:
    std::unordered_map<std::string, int> RowsByItem() const;  // the first row of each

    forms::VSFlexGrid* grid_;
};

}  // namespace qm
