#pragma once

#include <functional>
#include <span>
#include <string>

#include "platform/forms/grid/VSFlexGrid.h"

namespace qm {

// Where a grid of items shows what; -1 where it does not.
struct ItemColumns {
    int Mark;  // hidden: checked on a row that the save has to look at
    int Item;  // the item's number; empty on a row that has none
    int Name, Price, Qty;
    int Note = -1;
};

struct ItemHeading {
    const char* Text;
    int Width = 0;  // twips; 0: the grid's own
    bool Hidden = false;
    bool Figures = false;  // stand at the right
};

// A grid of items as the screens of stock, of orders and of receipts against orders have it, from the top:
// the headings, a row for each item, the entry row on which the next item lands, the rows below the items if
// there are any. What one of them does its own way stands in the class made from this one. Cheap to make
// where it is needed.
class ItemGrid {
  public:
    ItemGrid(forms::VSFlexGrid& grid, const ItemColumns& columns, int footRows = 0)
        : grid_(&grid), at_(columns), footRows_(footRows) {}

    void Empty() const;  // the headings and the entry row

    int EntryRow() const { return grid_->Rows() - 1 - footRows_; }  // items stand in rows 1 to the one above
    bool IsMarked(int row) const { return grid_->CellChecked(row, at_.Mark); }
    void Mark(int row, bool mark = true) const { grid_->SetCellChecked(row, at_.Mark, mark); }
    const std::string& Text(int row, int col) const { return grid_->TextMatrix(row, col); }
    double Number(int row, int col) const { return grid_->ValueMatrix(row, col); }
    bool HasItem(int row) const { return !Text(row, at_.Item).empty(); }

    // What an editor takes: in the column of quantities figures only; there and among the notes so many
    // characters.
    void FilterKey(int col, int& keyAscii) const;
    void LimitLength(int col) const;
    // Says what the cell lacks and goes there; false, for a check to return.
    bool Refuse(int row, int col, const std::string& message) const;

  protected:
    // The headings, the item's name growing with the window, the marks as check boxes.
    void SetHeadings(std::span<const ItemHeading> headings) const;
    // Where a picked item lands if the user has removed the entry row: over the last item, or on a row added
    // for it.
    enum class Landing { LastRow, FreeRow };
    // Asks for items and lets each land. One that has a row is left to `present`, which gets row and name.
    void AddPicked(Landing landing,
                   const std::function<void(int row, const std::string& name)>& present) const;

    forms::VSFlexGrid* grid_;

  private:
    ItemColumns at_;
    int footRows_;
};

}  // namespace qm
