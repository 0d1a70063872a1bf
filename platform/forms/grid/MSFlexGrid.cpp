#include "platform/forms/grid/MSFlexGrid.h"

#include <algorithm>

#include "platform/basic/Error.h"

namespace forms {

MSFlexGrid::MSFlexGrid(QWidget* parent) : FlexGrid(parent, 2, 2, 1) {}

const std::string& MSFlexGrid::TextArray(int index) const {
    if (index < 0 || Cols() == 0) basic::Raise(basic::error::Subscript, "forms.MSFlexGrid");
    return TextMatrix(index / Cols(), index % Cols());
}

void MSFlexGrid::Clear() {
    Model().Clear();
    LayoutChanged();
}

void MSFlexGrid::SetRowSel(int row) {
    rowSel_ = row;
    CellsChanged();
}

void MSFlexGrid::SetColSel(int col) {
    colSel_ = col;
    CellsChanged();
}

void MSFlexGrid::SetSelectByRow(bool byRow) {
    byRow_ = byRow;
    CellsChanged();
}

void MSFlexGrid::Selected() {
    rowSel_ = Row();
    colSel_ = Col();
}

CellShown MSFlexGrid::Shown(int row, int col) const {
    CellShown shown = FlexGrid::Shown(row, col);
    const auto within = [](int at, int a, int b) { return at >= std::min(a, b) && at <= std::max(a, b); };
    const bool inRows = within(row, Row(), rowSel_);
    const bool inCols = byRow_ || within(col, Col(), colSel_);
    if (!shown.Header && inRows && inCols) shown.Mark = CellMark::Highlighted;
    return shown;
}

}  // namespace forms
