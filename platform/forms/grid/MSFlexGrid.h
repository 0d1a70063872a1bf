#pragma once

#include <string>

#include "platform/forms/grid/FlexGrid.h"

namespace forms {

// The grid that only shows: its highlight runs from the current cell to RowSel, ColSel.
class MSFlexGrid : public FlexGrid {
  public:
    explicit MSFlexGrid(QWidget* parent = nullptr);

    std::string TypeName() const override { return "MSFlexGrid"; }

    const std::string& TextArray(int index) const;  // cells counted row by row: row * Cols + column; raises 9
    const basic::Value& ColData(int col) const { return Model().Column(col).Data; }
    void SetColData(int col, basic::Value value) { Model().Column(col).Data = std::move(value); }
    void Clear();  // texts and looks of all cells; rows and columns stay

    int RowSel() const { return rowSel_; }  // both follow the current cell when that moves
    int ColSel() const { return colSel_; }
    void SetRowSel(int row);
    void SetColSel(int col);
    void SetSelectByRow(bool byRow);  // the current row is highlighted whole
    CellShown Shown(int row, int col) const override;

  protected:
    void Selected() override;

  private:
    int rowSel_ = 1;
    int colSel_ = 0;
    bool byRow_ = false;
};

}  // namespace forms
