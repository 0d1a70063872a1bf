#pragma once

#include <string>

#include "platform/forms/grid/FlexGrid.h"

namespace forms {

// The grid that only shows: its highlight runs along the row from the current cell to ColSel.
class MSFlexGrid : public FlexGrid {
  public:
    explicit MSFlexGrid(QWidget* parent = nullptr);

    std::string TypeName() const override { return "MSFlexGrid"; }

    const std::string& TextArray(int index) const;  // cells counted row by row: row * Cols + column; raises 9
    const basic::Value& ColData(int col) const { return Model().Column(col).Data; }
    void SetColData(int col, basic::Value value) { Model().Column(col).Data = std::move(value); }
    void Clear();  // texts and looks of all cells; rows and columns stay

    int ColSel() const { return colSel_; }  // follows the current cell when that moves
    void SetColSel(int col);
    CellShown Shown(int row, int col) const override;

  protected:
    void Selected() override;

  private:
    int colSel_ = 0;
};

}  // namespace forms
