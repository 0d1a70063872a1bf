#pragma once

#include <cstdint>
#include <string>

#include "inventory/ItemGrid.h"

namespace qm {

// The lines of a purchase order in their grid. A saved line bears its order's number, and a mark once it was
// edited; one that was removed stays hidden until the save.
class OrderGrid : public ItemGrid {
  public:
    enum Column { MarkCol, OrderCol, ItemCol, NameCol, RateCol, QtyCol, Columns };

    explicit OrderGrid(forms::VSFlexGrid& grid)
        : ItemGrid(grid, {MarkCol, ItemCol, NameCol, RateCol, QtyCol}) {}

    void SetupPOGrid() const;
    // Adds the lines of an order above the entry row, with the items' rates of today.
    void Fill(std::int32_t orderNo) const;

    int LastLine() const { return EntryRow() - 1; }
    bool IsSaved(int row) const { return !Text(row, OrderCol).empty(); }
    bool IsRemoved(int row) const { return grid_->RowHidden(row); }
    std::string Figure(int row, int col) const;  // as it goes into a statement; blank is 0

    // Whether the cell's text belongs to the line as it stands: an item cannot be changed once it is chosen,
    // its rate never, and a quantity needs an item.
    bool IsFixed(int row, int col) const;
    void Remove(int row) const;  // a saved line is hidden, and deleted at the save
    // Asks for items and adds those that are not there. One that waits hidden to be deleted stays so.
    void AddPicked() const;
};

}  // namespace qm
