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

void MSFlexGrid::SetColSel(int col) {
    colSel_ = col;
    CellsChanged();
}

void MSFlexGrid::Selected() {
    colSel_ = Col();
}

CellShown MSFlexGrid::Shown(int row, int col) const {
    CellShown shown = FlexGrid::Shown(row, col);
    const auto [first, last] = std::minmax({Col(), colSel_});
    if (!shown.Header && row == Row() && col >= first && col <= last) shown.Mark = CellMark::Highlighted;
    return shown;
}

}  // namespace forms
