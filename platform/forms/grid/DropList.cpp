#include "platform/forms/grid/DropList.h"

#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

#include "platform/forms/controls/Text.h"
#include "platform/forms/controls/TextMeasure.h"

namespace forms {

namespace {

constexpr int RowsInView = 12;

bool IsFigure(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" -");
    return first == std::string_view::npos || (text[first] >= '0' && text[first] <= '9') ||
           text[first] == '.';
}

}  // namespace

DropList::DropList(QWidget* grid, const ComboList& list, std::function<void(int)> chosen)
    : GridView(grid), list_(list), chosen_(std::move(chosen)), entries_(list.Narrowed("")) {
    setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::Box);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFont(grid->font());
    setPalette(grid->palette());
    setObjectName(grid->objectName() + QStringLiteral(".list"));
    SetGridLines(false);
    MeasureColumns();
}

void DropList::MeasureColumns() {
    const TextMeasure measure(font());
    for (int i = 0; i < list_.Count(); ++i) {
        const auto& columns = list_.At(i).Columns;
        if (columns.size() > widths_.size()) {
            widths_.resize(columns.size());
            figures_.resize(columns.size(), true);
        }
        for (std::size_t col = 0; col < columns.size(); ++col) {
            widths_[col] = std::max(widths_[col], measure.Width(columns[col]) + 2 * CellPainter::Padding);
            figures_[col] = figures_[col] && IsFigure(columns[col]);
        }
    }
}

void DropList::DropFrom(const QRect& cell) {
    cell_ = cell;
    FitHeight();
    show();
    raise();
    SetChoice(choice_);
}

void DropList::FitHeight() {
    const int shown = std::clamp(static_cast<int>(entries_.size()), 1, RowsInView);
    const int height = shown * RowPixels + 2 * frameWidth();
    int width = verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    for (const int column : widths_) width += column;
    width = std::max(width, cell_.width());
    const QRect screen = this->screen()->availableGeometry();
    const bool below = cell_.bottom() + height <= screen.bottom() || cell_.top() - height < screen.top();
    const int left = std::max(screen.left(), std::min(cell_.left(), screen.right() - width));
    setGeometry(left, below ? cell_.bottom() + 1 : cell_.top() - height, width, height);
}

void DropList::Narrow(const std::string& typed) {
    entries_ = list_.Narrowed(typed);
    LayoutChanged();
    if (isVisible()) FitHeight();
    SetChoice(typed.empty() ? -1 : list_.Best(entries_, typed));
}

void DropList::SetChoice(int entry) {
    choice_ = entry;
    const auto at = std::find(entries_.begin(), entries_.end(), entry);
    if (at != entries_.end()) ShowCell(static_cast<int>(at - entries_.begin()), 0);
    CellsChanged();
}

void DropList::StepChoice(int step) {
    if (entries_.empty()) return;
    const auto at = std::find(entries_.begin(), entries_.end(), choice_);
    const int last = static_cast<int>(entries_.size()) - 1;
    const int from =
        at != entries_.end() ? static_cast<int>(at - entries_.begin()) : (step > 0 ? -1 : last + 1);
    SetChoice(entries_[static_cast<std::size_t>(std::clamp(from + step, 0, last))]);
}

int DropList::Page() const {
    return RowsInView - 1;
}

void DropList::MeasureRows(GridAxis& rows) const {
    rows.SetUniform(static_cast<int>(entries_.size()), RowPixels, 0);
}
void DropList::MeasureCols(GridAxis& cols) const {
    cols.Set(widths_, 0);
}

CellShown DropList::Shown(int row, int col) const {
    const int entry = entries_[static_cast<std::size_t>(row)];
    const auto& columns = list_.At(entry).Columns;
    const auto column = static_cast<std::size_t>(col);
    CellShown shown;
    if (column < columns.size()) shown.Text = ToQt(columns[column]);
    shown.Align = figures_[column] ? Alignment::Right : Alignment::Left;
    if (entry == choice_) shown.Mark = CellMark::Highlighted;
    return shown;
}

int DropList::EntryAt(const QPoint& place) const {
    const int row = viewport()->rect().contains(place) ? RowAt(place.y()) : -1;
    return row < 0 ? -1 : entries_[static_cast<std::size_t>(row)];
}

void DropList::mouseMoveEvent(QMouseEvent* event) {
    const int entry = EntryAt(event->position().toPoint());
    if (entry < 0) return;
    choice_ = entry;
    CellsChanged();
}

void DropList::mouseReleaseEvent(QMouseEvent* event) {
    const int entry = EntryAt(event->position().toPoint());
    if (entry >= 0 && event->button() == Qt::LeftButton) chosen_(entry);
}

}  // namespace forms
