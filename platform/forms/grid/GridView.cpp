#include "platform/forms/grid/GridView.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <climits>
#include <utility>

namespace forms {

GridView::GridView(QWidget* parent) : QAbstractScrollArea(parent) {
    viewport()->setMouseTracking(true);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

QPoint GridView::Offset() const {
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

const GridAxis& GridView::RowAxis() const {
    MeasureAgain();
    return rows_;
}

const GridAxis& GridView::ColAxis() const {
    MeasureAgain();
    return cols_;
}

void GridView::MeasureAgain() const {
    if (measured_) return;
    MeasureRows(rows_);
    MeasureCols(cols_);
    measured_ = true;
}

QRect GridView::CellRect(int row, int col) const {
    const GridAxis& rows = RowAxis();
    const GridAxis& cols = ColAxis();
    const int left = cols.ViewStart(col, Offset().x());
    int width = cols.Size(col);
    const bool last = cols.NextShown(col + 1, 1) < 0;
    if (last && width > 0) width = std::max(width, viewport()->width() - left);
    return {left, rows.ViewStart(row, Offset().y()), width, rows.Size(row)};
}

int GridView::RowAt(int y) const {
    return y < 0 ? -1 : RowAxis().AtView(y, Offset().y());
}

int GridView::ColAt(int x) const {
    if (x < 0) return -1;
    const int col = ColAxis().AtView(x, Offset().x());
    if (col >= 0 || x >= viewport()->width()) return col;
    for (int last = ColAxis().Count() - 1; last >= 0; --last)
        if (ColAxis().Size(last) > 0) return last;
    return -1;
}

void GridView::ShowCell(int row, int col) {
    toShow_ = QPoint(col, row);
    if (!isVisible()) return;  // its size is not known yet
    ArrangeScrollBars();
}

void GridView::ScrollTo(int row, int col) {
    if (row >= RowAxis().Count() || col >= ColAxis().Count()) return;
    verticalScrollBar()->setValue(RowAxis().OffsetToShow(row, Offset().y(), viewport()->height()));
    horizontalScrollBar()->setValue(ColAxis().OffsetToShow(col, Offset().x(), viewport()->width()));
}

void GridView::SetGridLines(bool lines) {
    gridLines_ = lines;
    CellsChanged();
}

void GridView::SetScrollBars(bool bars) {
    const auto policy = bars ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    setHorizontalScrollBarPolicy(policy);
    setVerticalScrollBarPolicy(policy);
}

void GridView::LayoutChanged() {
    measured_ = false;
    CellsChanged();
    if (arranging_) return;
    arranging_ = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

void GridView::CellsChanged() {
    if (dirty_) return;
    dirty_ = true;
    viewport()->update();
}

void GridView::ArrangeScrollBars() {
    arranging_ = false;
    const QSize room = viewport()->size();
    verticalScrollBar()->setRange(0, std::max(0, RowAxis().Total() - room.height()));
    verticalScrollBar()->setPageStep(std::max(RowPixels, room.height() - RowAxis().FixedSize()));
    verticalScrollBar()->setSingleStep(RowPixels);
    horizontalScrollBar()->setRange(0, std::max(0, ColAxis().Total() - room.width()));
    horizontalScrollBar()->setPageStep(room.width());
    horizontalScrollBar()->setSingleStep(RowPixels);
    if (isVisible() && toShow_) {
        const QPoint cell = *std::exchange(toShow_, std::nullopt);
        ScrollTo(cell.y(), cell.x());
    }
    ViewMoved();
}

bool GridView::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest && arranging_) ArrangeScrollBars();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) LayoutChanged();
    return QAbstractScrollArea::event(event);
}

void GridView::resizeEvent(QResizeEvent*) {
    measured_ = false;
    ArrangeScrollBars();
}

void GridView::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    ArrangeScrollBars();
}

void GridView::scrollContentsBy(int dx, int dy) {
    for (QWidget* over : viewport()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        over->move(over->x() + dx, over->y() + dy);
    ViewMoved();
    viewport()->update();
}

void GridView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    CellsChanged();
}

void GridView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    CellsChanged();
}

void GridView::paintEvent(QPaintEvent* event) {
    dirty_ = false;
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Base));
    CellPainter cells(painter, *this, gridLines_, Active());
    const GridAxis& rows = RowAxis();
    if (rows.Count() == 0) return;
    const int fixed = rows.FixedSize();
    const QRect body = viewport()->rect().adjusted(0, fixed, 0, 0);
    const int first = std::max(rows.Fixed(), rows.AtView(body.top(), Offset().y()));
    int last = rows.AtView(body.bottom(), Offset().y());
    if (last < 0) last = rows.Count() - 1;
    PaintRows(cells, first, last, body);
    painter.setClipping(false);
    PaintRows(cells, 0, rows.Fixed() - 1, viewport()->rect());
}

void GridView::PaintRows(CellPainter& painter, int first, int last, const QRect& area) {
    for (int row = first; row <= last; ++row)
        if (RowAxis().Size(row) > 0) PaintRow(painter, row, area);
}

void GridView::PaintRow(CellPainter& painter, int row, const QRect& area) {
    int blankFrom = INT_MAX;
    for (int col = 0; col < ColAxis().Count(); ++col) {
        if (ColAxis().Size(col) == 0) continue;
        const QRect cell = CellRect(row, col);
        if (!cell.intersects(area)) continue;
        CellShown shown = Shown(row, col);
        shown.BlankFrom = blankFrom;
        painter.Paint(cell, shown);
        const bool blank = shown.Text.isEmpty() && !shown.HasCheck && shown.Picture.empty();
        blankFrom = blank ? std::min(blankFrom, cell.left()) : INT_MAX;
    }
}

}  // namespace forms
