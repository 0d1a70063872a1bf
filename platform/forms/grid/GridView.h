#pragma once

#include <QAbstractScrollArea>
#include <QPoint>
#include <optional>

#include "platform/forms/grid/CellPainter.h"
#include "platform/forms/grid/GridAxis.h"

namespace forms {

inline constexpr int RowPixels = 26;  // the height of an ordinary row

// The common face of all grids and lists: paints the rows in view, one by one, from what its heirs tell about
// a cell. There is no object per cell, so a million rows cost what the rows in view cost.
class GridView : public QAbstractScrollArea {
  public:
    explicit GridView(QWidget* parent);

    QRect CellRect(int row, int col) const;  // on the viewport; the place it would have if it is scrolled out
    int RowAt(int y) const;                  // the row at a place of the viewport, -1: none
    int ColAt(int x) const;
    void ShowCell(int row, int col);  // scrolls it into view
    void SetGridLines(bool lines);

    void SetScrollBars(bool bars);  // shown when needed, or never

    const GridAxis& RowAxis() const;  // brought up to date
    const GridAxis& ColAxis() const;

    // For what draws and reads the cells.
    virtual CellShown Shown(int row, int col) const = 0;
    virtual bool Active() const { return hasFocus(); }   // marks are bright
    virtual QPoint Current() const { return {-1, -1}; }  // column and row of the current cell

  protected:
    virtual void MeasureRows(GridAxis& rows) const = 0;
    virtual void MeasureCols(GridAxis& cols) const = 0;
    virtual void ViewMoved() {}  // scrolled or laid out anew: what lies over a cell has to follow

    void LayoutChanged();  // sizes or counts changed
    void CellsChanged();   // only looks changed
    QPoint Offset() const;

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void MeasureAgain() const;
    void ArrangeScrollBars();
    void ScrollTo(int row, int col);
    void PaintRows(CellPainter& painter, int first, int last, const QRect& area);
    void PaintRow(CellPainter& painter, int row, const QRect& area);

    mutable GridAxis rows_;
    mutable GridAxis cols_;
    mutable bool measured_ = false;
    std::optional<QPoint> toShow_;  // the column and row to scroll to when there is a size
    bool arranging_ = false;        // a request to arrange the scroll bars is on its way
    bool dirty_ = false;            // a repaint is on its way
    bool gridLines_ = true;
};

}  // namespace forms
