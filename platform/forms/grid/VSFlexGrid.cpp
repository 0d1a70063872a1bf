#include "platform/forms/grid/VSFlexGrid.h"

#include <algorithm>

#include "platform/forms/controls/Text.h"
#include "platform/forms/controls/TextMeasure.h"
#include "platform/forms/grid/CellEditor.h"
#include "platform/forms/grid/DropList.h"

namespace forms {

VSFlexGrid::VSFlexGrid(QWidget* parent)
    : FlexGrid(parent, 2, 2, 1),
      BeforeEdit(this),
      StartEdit(this),
      KeyPressEdit(this),
      ValidateEdit(this),
      AfterEdit(this),
      EditDropped(this),
      CellButtonClick(this) {}

VSFlexGrid::~VSFlexGrid() = default;

void VSFlexGrid::SetCellChecked(int row, int col, bool checked) {
    Model().Extra(row, col).Checked = checked;
    CellsChanged();
}

template <class Set>
void VSFlexGrid::Range(int row1, int col1, int row2, int col2, Set set) {
    for (int row = std::min(row1, row2); row <= std::max(row1, row2); ++row)
        for (int col = std::min(col1, col2); col <= std::max(col1, col2); ++col) set(Model().Extra(row, col));
    CellsChanged();
}

void VSFlexGrid::SetCellForeColor(int row1, int col1, int row2, int col2, unsigned colour) {
    Range(row1, col1, row2, col2, [colour](CellExtra& cell) { cell.ForeColor = colour; });
}

void VSFlexGrid::SetCellBackColor(int row1, int col1, int row2, int col2, unsigned colour) {
    Range(row1, col1, row2, col2, [colour](CellExtra& cell) { cell.BackColor = colour; });
}

void VSFlexGrid::SetCellFontBold(int row1, int col1, int row2, int col2, bool bold) {
    Range(row1, col1, row2, col2, [bold](CellExtra& cell) { cell.Bold = bold; });
}

void VSFlexGrid::SetCellFontItalic(int row1, int col1, int row2, int col2, bool italic) {
    Range(row1, col1, row2, col2, [italic](CellExtra& cell) { cell.Italic = italic; });
}

void VSFlexGrid::SetCellAlignment(int row1, int col1, int row2, int col2, Alignment alignment) {
    Range(row1, col1, row2, col2, [alignment](CellExtra& cell) { cell.Align = alignment; });
}

void VSFlexGrid::SetCellPicture(int row, int col, std::string image) {
    Model().Extra(row, col).Picture = std::move(image);
    CellsChanged();
}

void VSFlexGrid::SetColBoolean(int col, bool boolean) {
    Model().Column(col).Boolean = boolean;
    CellsChanged();
}

void VSFlexGrid::SetColFormat(int col, std::string mask) {
    Model().Column(col).Format = std::move(mask);
    CellsChanged();
}

void VSFlexGrid::SetColComboList(int col, const std::string& list) {
    DropEdit();
    Model().Column(col).ComboList = list;
    lists_.resize(static_cast<std::size_t>(Cols()));
    lists_[static_cast<std::size_t>(col)] = ComboList(list);
    choice_ = -1;
    CellsChanged();
}

const ComboList& VSFlexGrid::List(int col) const {
    static const ComboList none;
    const auto column = static_cast<std::size_t>(col);
    return column < lists_.size() ? lists_[column] : none;
}

void VSFlexGrid::AutoSize(int col1, int col2) {
    QFont bold = font();
    bold.setBold(true);
    const TextMeasure plain(font());
    const TextMeasure strong(bold);
    for (int col = col1; col <= col2; ++col) {
        int widest = 0;
        for (int row = 0; row < Rows(); ++row) {
            const bool isStrong = row < FixedRows() || Model().Extra(row, col).Bold;
            const int arrow = row == 0 && explorerSort_ ? CellPainter::ArrowRoom : 0;
            widest = std::max(widest, (isStrong ? strong : plain).Width(PaintedText(row, col)) + arrow);
        }
        const int button = List(col).Empty() ? 0 : RowPixels;
        SetColWidth(col, TwipsFromPixels(widest + 2 * CellPainter::Padding + button, this));
    }
}

void VSFlexGrid::SetHighLight(bool highLight) {
    highLight_ = highLight;
    CellsChanged();
}

void VSFlexGrid::HeadingClicked(int col) {
    if (!explorerSort_ || !FinishEdit()) return;
    descending_ = sortedCol_ == col && !descending_;
    sortedCol_ = col;
    Model().SortRows(col, descending_);
    LayoutChanged();
}

CellShown VSFlexGrid::Shown(int row, int col) const {
    CellShown shown = FlexGrid::Shown(row, col);
    if (row == 0 && explorerSort_ && col == sortedCol_) shown.SortArrow = descending_ ? -1 : 1;
    if (row != Row() || col != Col() || shown.Header) return shown;
    if (highLight_) shown.Mark = CellMark::Current;
    if (editable_ && !List(col).Empty()) {
        shown.Button = List(col).IsButton() ? CellButton::Ellipsis : CellButton::Drop;
        if (List(col).IsButton()) shown.ButtonPicture = buttonPicture_;
    }
    return shown;
}

}  // namespace forms
