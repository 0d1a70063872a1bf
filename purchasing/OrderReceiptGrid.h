#pragma once

#include "inventory/BillFooter.h"
#include "inventory/ItemGrid.h"

namespace qm {

// The lines of an order in the grid in which their receipts are entered: none can be added or removed, so
// there is no entry row above the footer. Quantities are the items' own units.
class OrderReceiptGrid : public ItemGrid {
  public:
    enum Column { MarkCol, ItemCol, NameCol, RateCol, OrderedCol, PreviousCol, QtyCol, NoteCol, Columns };

    explicit OrderReceiptGrid(forms::VSFlexGrid& grid)
        : ItemGrid(grid, {MarkCol, ItemCol, NameCol, RateCol, QtyCol, NoteCol}, FooterRows) {}

    void Prepare() const;  // once for each window
    // The headings alone. What was received before is shown for a new receipt only.
    void Setup(bool isNew) const;

    double Outstanding(int row) const { return Number(row, OrderedCol) - Number(row, PreviousCol); }
    double Received(int row) const { return Number(row, QtyCol); }

    void BeforeEdit(int row, int col, bool& cancel) const;  // of a new receipt
    void ValidateEdit(int row, int col, bool& cancel) const;
};

}  // namespace qm
