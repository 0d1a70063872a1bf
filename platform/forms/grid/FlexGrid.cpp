#include "platform/forms/grid/FlexGrid.h"

#include <QIcon>
#include <algorithm>
#include <numeric>

#include "platform/basic/Error.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/controls/TextMeasure.h"
#include "platform/forms/grid/GridAccessible.h"

namespace forms {

namespace {

constexpr int DefaultColPixels = 64;

}  // namespace

FlexGrid::FlexGrid(QWidget* parent, int rows, int cols, int fixedRows)
    : GridView(parent),
      Control(this, Focus::Takes),
      Click(this),
      DblClick(this),
      KeyDown(this),
      KeyPress(this),
      MouseDown(this),
      MouseMove(this),
      MouseUp(this),
      BeforeRowColChange(this),
      AfterRowColChange(this),
      model_(rows, cols, fixedRows),
      row_(std::min(fixedRows, rows - 1)) {
    GridAccessible::Install();
}

void FlexGrid::SetRows(int rows) {
    if (rows < Rows()) CellsRemoved();
    model_.SetRows(rows);
    ClampCurrent();
    LayoutChanged();
}

void FlexGrid::SetCols(int cols) {
    if (cols < Cols()) CellsRemoved();
    model_.SetCols(cols);
    ClampCurrent();
    LayoutChanged();
}

void FlexGrid::SetFixedRows(int rows) {
    model_.SetFixedRows(rows);
    ClampCurrent();
    LayoutChanged();
}

// The current cell stays where there are cells, silently: the rows went, the user did not move.
void FlexGrid::ClampCurrent() {
    row_ = std::min(std::max(row_, FirstRow()), Rows() - 1);
    col_ = std::clamp(col_, 0, std::max(0, Cols() - 1));
}

void FlexGrid::SetTextMatrix(int row, int col, std::string text) {
    model_.SetText(row, col, std::move(text));
    if (row < FixedRows() || col == growingCol_) LayoutChanged();  // it makes room for its text
    CellsChanged();
}

void FlexGrid::AddItem(const std::string& text, int index) {
    model_.InsertRow(index < 0 ? Rows() : index, text);
    ClampCurrent();
    LayoutChanged();
}

void FlexGrid::RemoveItem(int row) {
    CellsRemoved();
    model_.RemoveRow(row);
    ClampCurrent();
    LayoutChanged();
}

int FlexGrid::RowHeight(int row) const {
    const int twips = model_.RowHeight(row);
    return twips >= 0 ? twips : TwipsFromPixels(RowPixels, this);
}

void FlexGrid::SetRowHeight(int row, int twips) {
    model_.SetRowHeight(row, twips);
    LayoutChanged();
}

void FlexGrid::SetRowHidden(int row, bool hidden) {
    model_.SetRowHidden(row, hidden);
    LayoutChanged();
}

int FlexGrid::ColWidth(int col) const {
    const int twips = model_.Column(col).Width;
    return twips >= 0 ? twips : TwipsFromPixels(DefaultColPixels, this);
}

void FlexGrid::SetColWidth(int col, int twips) {
    model_.Column(col).Width = twips;
    LayoutChanged();
}

void FlexGrid::SetColHidden(int col, bool hidden) {
    model_.Column(col).Hidden = hidden;
    LayoutChanged();
}

void FlexGrid::SetColAlignment(int col, Alignment alignment) {
    model_.Column(col).Align = alignment;
    CellsChanged();
}

void FlexGrid::SetGrowingCol(int col) {
    growingCol_ = col;
    LayoutChanged();
}

void FlexGrid::SetRow(int row) {
    Select(row, col_);
}
void FlexGrid::SetCol(int col) {
    Select(row_, col);
}

void FlexGrid::Select(int row, int col) {
    model_.Text(row, col);  // raises where there is no such cell
    if (LeaveCell()) MoveTo(row, col);
}

bool FlexGrid::MoveTo(int row, int col) {
    const int oldRow = row_;
    const int oldCol = col_;
    if (row == oldRow && col == oldCol) {
        Selected();
        return true;
    }
    bool cancel = false;
    BeforeRowColChange.Fire(oldRow, oldCol, row, col, cancel);
    if (cancel || row >= Rows() || col >= Cols()) return false;
    row_ = row;
    col_ = col;
    Selected();
    CellsChanged();
    ShowCell(row, col);
    GridAccessible::Announce(*this, row, col);
    AfterRowColChange.Fire(oldRow, oldCol, row, col);
    return true;
}

int FlexGrid::CellLeft() const {
    return TwipsFromPixels(CellRect(row_, col_).left(), this);
}
int FlexGrid::CellTop() const {
    return TwipsFromPixels(CellRect(row_, col_).top(), this);
}
int FlexGrid::CellWidth() const {
    return TwipsFromPixels(CellRect(row_, col_).width(), this);
}
int FlexGrid::CellHeight() const {
    return TwipsFromPixels(CellRect(row_, col_).height(), this);
}

void FlexGrid::SetMouseIcon(const std::string& picture) {
    constexpr int Side = 24;
    constexpr QPoint FingerTip(9, 2);
    hand_ = QCursor(QIcon(ToQt(picture)).pixmap(QSize(Side, Side), devicePixelRatio()), FingerTip.x(),
                    FingerTip.y());
}

void FlexGrid::SetMousePointer(int pointer) {
    viewport()->setCursor(pointer == vbHand ? hand_ : QCursor(Qt::ArrowCursor));
}

void FlexGrid::SetRedraw(bool redraw) {
    viewport()->setUpdatesEnabled(redraw);
    if (redraw) Refresh();
}

void FlexGrid::Refresh() {
    LayoutChanged();
    viewport()->update();
}

void FlexGrid::SetContainer(FlexGrid& grid) {
    const bool visible = Visible();
    setParent(grid.viewport());
    setFrameShape(QFrame::NoFrame);
    SetScrollBars(false);
    SetVisible(visible);
}

void FlexGrid::MeasureRows(GridAxis& rows) const {
    const int line = TextMeasure(font()).LineHeight();
    std::vector<int> sizes(static_cast<std::size_t>(Rows()));
    for (int row = 0; row < Rows(); ++row) {
        const int twips = model_.RowHeight(row);
        int& size = sizes[static_cast<std::size_t>(row)];
        if (model_.RowHidden(row)) continue;
        size = twips >= 0 ? PixelsFromTwips(twips, this) : RowPixels;
        for (int col = 0; row < FixedRows() && col < Cols(); ++col) {
            const std::string& heading = model_.Text(row, col);
            const auto lines = static_cast<int>(std::count(heading.begin(), heading.end(), '\n')) + 1;
            size = std::max(size, lines * line + 6);
        }
    }
    rows.Set(std::move(sizes), FixedRows());
}

void FlexGrid::MeasureCols(GridAxis& cols) const {
    std::vector<int> sizes;
    for (int col = 0; col < Cols(); ++col)
        sizes.push_back(model_.Column(col).Hidden ? 0 : PixelsFromTwips(ColWidth(col), this));
    const int spare = viewport()->width() - std::accumulate(sizes.begin(), sizes.end(), 0);
    if (growingCol_ >= 0 && growingCol_ < Cols() && !ColHidden(growingCol_)) {
        int& size = sizes[static_cast<std::size_t>(growingCol_)];
        size += std::clamp(Needed(growingCol_) - size, 0, std::max(0, spare));
    }
    cols.Set(std::move(sizes), 0);
}

int FlexGrid::Needed(int col) const {
    const TextMeasure measure(font());
    int widest = 0;
    for (int row = FixedRows(); row < Rows(); ++row)
        widest = std::max(widest, measure.Width(model_.Text(row, col)));
    return widest + CellPainter::Padding + RowPixels;
}

std::string FlexGrid::PaintedText(int row, int col) const {
    const std::string& text = model_.Text(row, col);
    const std::string& format = model_.Column(col).Format;
    return row < FixedRows() || format.empty() ? text : basic::Format(text, format);
}

CellShown FlexGrid::Shown(int row, int col) const {
    const GridColumn& column = model_.Column(col);
    const CellExtra& extra = model_.Extra(row, col);
    CellShown shown;
    shown.Header = row < FixedRows();
    shown.HasCheck = column.Boolean && !shown.Header;
    shown.Checked = extra.Checked;
    if (!shown.HasCheck) shown.Text = ToQt(WithLineEnds(PaintedText(row, col)));
    shown.Fore = OwnColor(extra.ForeColor);
    shown.Back = OwnColor(extra.BackColor);
    shown.Bold = extra.Bold || shown.Header;
    shown.Italic = extra.Italic;
    shown.Picture = extra.Picture;
    shown.Align = extra.Align != Alignment::General ? extra.Align
                  : shown.Header                    ? Alignment::Center
                                                    : column.Align;
    if (shown.Align == Alignment::General) {
        const bool figures = !column.Format.empty() || basic::IsNumeric(model_.Text(row, col));
        shown.Align = figures ? Alignment::Right : Alignment::Left;
    }
    return shown;
}

}  // namespace forms
