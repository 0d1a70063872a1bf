#pragma once

#include <QCursor>
#include <string>
#include <utility>

#include "platform/forms/controls/Control.h"
#include "platform/forms/grid/GridModel.h"
#include "platform/forms/grid/GridView.h"

namespace forms {

inline constexpr int vbHand = 99;  // the mouse pointer over what can be clicked

// What the two grids share: rows and columns of texts, a current cell, and the events of keys, mouse and
// moves. Rows and columns count from 0, fixed rows included. Widths and heights are in twips. A row or column
// that is not there raises 9.
class FlexGrid : public GridView, public Control {
  public:
    // Size and contents
    int Rows() const { return model_.Rows(); }
    void SetRows(int rows);  // fewer rows forget their cells: 1, then 2, empties the one that comes back
    int Cols() const { return model_.Cols(); }
    void SetCols(int cols);
    int FixedRows() const { return model_.FixedRows(); }
    void SetFixedRows(int rows);
    const std::string& TextMatrix(int row, int col) const { return model_.Text(row, col); }
    void SetTextMatrix(int row, int col, std::string text);
    double ValueMatrix(int row, int col) const { return model_.Value(row, col); }  // blank is 0
    // Cells parted by tabs; before row `index`, -1: at the end.
    void AddItem(const std::string& text, int index = -1);
    void RemoveItem(int row);

    // Rows and columns
    int RowHeight(int row) const;
    void SetRowHeight(int row, int twips);
    bool RowHidden(int row) const { return model_.RowHidden(row); }
    void SetRowHidden(int row, bool hidden);
    int ColWidth(int col) const;
    void SetColWidth(int col, int twips);
    bool ColHidden(int col) const { return model_.Column(col).Hidden; }
    void SetColHidden(int col, bool hidden);
    void SetColAlignment(int col, Alignment alignment);
    // A column of names: where its texts need more than its width, it is shown wider by what the columns
    // leave free, and only the rest goes to the last one. ColWidth stays as it was set.
    void SetGrowingCol(int col);

    // The current cell. Moving it by code fires the move events like a user's move, and a cancelled move does
    // not happen.
    int Row() const { return row_; }
    int Col() const { return col_; }
    void SetRow(int row);
    void SetCol(int col);
    void Select(int row, int col);
    int CellLeft() const;  // of the current cell, from the grid's edge
    int CellTop() const;
    int CellWidth() const;
    int CellHeight() const;

    // The cell under the mouse; -1: none.
    int MouseRow() const { return RowAt(mouse_.y()); }
    int MouseCol() const { return ColAt(mouse_.x()); }
    void SetMouseIcon(const std::string& picture);  // what vbHand shows
    void SetMousePointer(int pointer);              // 0 or vbHand

    void SetRedraw(bool redraw);  // False while many cells change
    void Refresh();
    // Lays the grid over the cells of another one; places then count from that one's edge.
    void SetContainer(FlexGrid& grid);

    Event<> Click, DblClick;
    Event<int&, int> KeyDown;             // code, shift; code 0 drops the key
    Event<int&> KeyPress;                 // character; 0 drops the key
    Event<int, int, int, int> MouseDown;  // button (1 left, 2 right), shift, x and y in twips
    Event<int, int, int, int> MouseMove;
    Event<int, int, int, int> MouseUp;
    Event<int, int, int, int, bool&> BeforeRowColChange;  // old row and column, new row and column, Cancel
    Event<int, int, int, int> AfterRowColChange;          // old, new

    CellShown Shown(int row, int col) const override;
    QPoint Current() const override { return {col_, row_}; }

  protected:
    FlexGrid(QWidget* parent, int rows, int cols, int fixedRows);

    GridModel& Model() { return model_; }
    const GridModel& Model() const { return model_; }
    bool MoveTo(int row, int col);  // with the events; False if refused
    bool StepCol(int step);  // along the row, then to the next or last row; False: there is no such cell
    virtual int FirstRow() const { return 0; }  // the current row is never above it when rows come and go
    virtual bool LeaveCell() {
        return true;
    }                               // completes what is open on the current cell; False: it stays open
    virtual void CellsRemoved() {}  // drops what is open on the current cell
    virtual void KeyDefault(QKeyEvent& event, int keyAscii);  // what a key does when no handler dropped it
    // After MouseUp and Click, on a cell below the heading.
    virtual void CellPressed(const QPoint& place, bool wasCurrent);
    virtual void HeadingClicked(int) {}
    virtual void Selected() {}  // a move has set the current cell

    void MeasureRows(GridAxis& rows) const override;
    void MeasureCols(GridAxis& cols) const override;
    std::string PaintedText(int row, int col) const;  // formatted where the column has a format

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void ClampCurrent();
    int Needed(int col) const;  // pixels for the longest text of a column and its button
    void StepRow(int step);
    void GoTowards(int row, int col);
    void FireMouse(const Event<int, int, int, int>& event, const QMouseEvent& mouse);

    GridModel model_;
    int row_ = 0;
    int col_ = 0;
    int growingCol_ = -1;
    QPoint mouse_{-1, -1};
    QCursor hand_{Qt::PointingHandCursor};
    bool pressed_ = false;                // the press was on this grid and not refused
    bool doubled_ = false;                // it was the second of a double click
    std::pair<int, int> before_{-1, -1};  // the current cell when the mouse was pressed
};

}  // namespace forms
