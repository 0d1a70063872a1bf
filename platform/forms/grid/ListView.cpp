#include "platform/forms/grid/ListView.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>
#include <utility>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/grid/GridAccessible.h"

namespace forms {

namespace {

constexpr int ManyLines = 200'000;  // sorting more takes long enough to show the hourglass

}  // namespace

// The lines that were added one by one.
class ListView::Lines : public RowSource {
  public:
    void Clear() { lines_.clear(); }
    void Add(ListLine line) { lines_.push_back(std::move(line)); }
    int Count() const override { return static_cast<int>(lines_.size()); }
    std::string Text(int row, int column) const override {
        return column == 0 ? At(row).Text : At(row).SubItem(column);
    }
    std::string Key(int row) const override { return At(row).Key; }

  private:
    const ListLine& At(int row) const { return lines_[static_cast<std::size_t>(row)]; }
    std::vector<ListLine> lines_;
};

const std::string& ListLine::SubItem(int index) const {
    static const std::string none;
    const auto at = static_cast<std::size_t>(index - 1);
    return index >= 1 && at < SubItems.size() ? SubItems[at] : none;
}

ListView::ListView(QWidget* parent)
    : GridView(parent),
      Control(this, Focus::Takes),
      ColumnClick(this),
      ItemClick(this),
      Click(this),
      DblClick(this),
      own_(std::make_shared<Lines>()),
      source_(own_) {
    GridAccessible::Install();
}

void ListView::AddColumn(std::string caption, int width, Alignment alignment) {
    columns_.push_back({std::move(caption), width, alignment});
    LayoutChanged();
}

const ListView::Column& ListView::At(int column) const {
    if (column < 1 || column > ColumnCount()) basic::Raise(basic::error::Subscript, "forms.ListView");
    return columns_[static_cast<std::size_t>(column - 1)];
}

ListView::Column& ListView::At(int column) {
    return const_cast<Column&>(std::as_const(*this).At(column));
}

void ListView::SetColumnText(int column, std::string caption) {
    At(column).Caption = std::move(caption);
    CellsChanged();
}

void ListView::SetColumnWidth(int column, int width) {
    At(column).Width = width;
    LayoutChanged();
}

void ListView::Clear() {
    own_->Clear();
    source_ = own_;
    Refilled();
}

void ListView::AddItem(std::string key, std::string text, std::vector<std::string> subItems) {
    if (source_ != own_) Clear();
    own_->Add({std::move(key), std::move(text), std::move(subItems)});
    if (sorted_)
        orderStale_ = true;
    else if (!order_.empty())
        order_.push_back(static_cast<std::uint32_t>(Count() - 1));
    LayoutChanged();
}

void ListView::SetRowSource(std::shared_ptr<RowSource> source) {
    own_->Clear();
    source_ = std::move(source);
    Refilled();
}

void ListView::Refilled() {
    order_.clear();
    orderStale_ = sorted_;
    selected_ = -1;
    LayoutChanged();
    ShowCell(1, 0);
}

void ListView::SetSorted(bool sorted) {
    sorted_ = sorted;
    if (sorted) Resort();
}

void ListView::SetSortKey(int key) {
    sortKey_ = key;
    if (sorted_) Resort();
}

void ListView::SetSortOrder(int order) {
    sortOrder_ = order;
    if (sorted_) Resort();
}

void ListView::Resort() {
    orderStale_ = true;
    CellsChanged();
}

// Sorting waits until the list is looked at: a header click sets up to three properties. The selected line
// stays selected.
void ListView::BringUpToDate() const {
    if (!orderStale_) return;
    orderStale_ = false;
    const auto row = selected_ < 0 ? 0 : static_cast<std::uint32_t>(RowShownAt(selected_));
    const bool slow = Count() > ManyLines;
    if (slow) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    order_ = SortedRows(*source_, sortKey_, sortOrder_ == 1);
    if (slow) QGuiApplication::restoreOverrideCursor();
    if (selected_ < 0) return;
    selected_ = static_cast<int>(std::find(order_.begin(), order_.end(), row) - order_.begin());
}

int ListView::RowShownAt(int index) const {
    BringUpToDate();
    const auto at = static_cast<std::size_t>(index);
    return at < order_.size() ? static_cast<int>(order_[at]) : index;
}

ListLine ListView::Item(int index) const {
    if (index < 1 || index > Count()) basic::Raise(basic::error::Subscript, "forms.ListView");
    const int row = RowShownAt(index - 1);
    ListLine line{source_->Key(row), source_->Text(row, 0), {}};
    for (int column = 1; column < ColumnCount(); ++column)
        line.SubItems.push_back(source_->Text(row, column));
    return line;
}

std::optional<ListLine> ListView::SelectedItem() const {
    if (SelectedIndex() == 0) return std::nullopt;
    return Item(SelectedIndex());
}

int ListView::SelectedIndex() const {
    BringUpToDate();
    return Count() == 0 ? 0 : std::max(selected_, 0) + 1;
}

void ListView::SetSelectedIndex(int index) {
    BringUpToDate();
    selected_ = std::clamp(index, 1, std::max(1, Count())) - 1;
    ShowCell(selected_ + 1, 0);
    GridAccessible::Announce(*this, selected_ + 1, 0);
    CellsChanged();
}

void ListView::SetEmptyNote(const std::string& note) {
    emptyNote_ = ToQt(note);
    CellsChanged();
}

void ListView::paintEvent(QPaintEvent* event) {
    GridView::paintEvent(event);
    if (Count() > 0 || emptyNote_.isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyNote_);
}

void ListView::MeasureRows(GridAxis& rows) const {
    rows.SetUniform(Count() + 1, RowPixels, 1);
}

void ListView::MeasureCols(GridAxis& cols) const {
    std::vector<int> sizes;
    for (const Column& column : columns_) sizes.push_back(PixelsFromTwips(column.Width, this));
    cols.Set(std::move(sizes), 0);
}

// Row 0 of the view is the heading, the lines follow.
CellShown ListView::Shown(int row, int col) const {
    const Column& column = At(col + 1);
    CellShown shown;
    shown.Header = row == 0;
    if (shown.Header) {
        shown.Text = ToQt(column.Caption);
        shown.Align = Alignment::Center;
        shown.Bold = true;
        if (sorted_ && col == sortKey_) shown.SortArrow = sortOrder_ == 0 ? 1 : -1;
        return shown;
    }
    shown.Text = ToQt(source_->Text(RowShownAt(row - 1), col));
    shown.Align = column.Align;
    if (row == SelectedIndex()) shown.Mark = CellMark::Highlighted;
    return shown;
}

void ListView::FireItemClick() {
    if (const auto line = SelectedItem()) ItemClick.Fire(*line);
}

void ListView::keyPressEvent(QKeyEvent* event) {
    const int page = std::max(1, viewport()->height() / RowPixels - 2);
    switch (event->key()) {
        case Qt::Key_Up:
            return SetSelectedIndex(SelectedIndex() - 1);
        case Qt::Key_Down:
            return SetSelectedIndex(SelectedIndex() + 1);
        case Qt::Key_PageUp:
            return SetSelectedIndex(SelectedIndex() - page);
        case Qt::Key_PageDown:
            return SetSelectedIndex(SelectedIndex() + page);
        case Qt::Key_Home:
            return SetSelectedIndex(1);
        case Qt::Key_End:
            return SetSelectedIndex(Count());
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return FireItemClick();
        default:
            GridView::keyPressEvent(event);
    }
}

void ListView::mousePressEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    doubled_ = false;
    pressedRow_ = event->button() == Qt::LeftButton ? RowAt(place.y()) : -1;
    pressedCol_ = ColAt(place.x());
    if (pressedRow_ >= 1) SetSelectedIndex(pressedRow_);
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    const QPointer<ListView> self = this;
    const QPoint place = event->position().toPoint();
    const int row = std::exchange(pressedRow_, -1);
    if (event->button() != Qt::LeftButton || std::exchange(doubled_, false)) return;
    if (row == 0) {
        if (RowAt(place.y()) == 0 && pressedCol_ >= 0 && ColAt(place.x()) == pressedCol_)
            ColumnClick.Fire(pressedCol_ + 1);
        return;
    }
    if (row >= 1 && RowAt(place.y()) == row) FireItemClick();
    if (self) Click.Fire();
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    const bool onHeading = pressedRow_ == 0;
    if (event->button() != Qt::LeftButton || onHeading) return;
    doubled_ = true;
    DblClick.Fire();
}

}  // namespace forms
