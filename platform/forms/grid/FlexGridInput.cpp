// Keys and mouse of the grids.
#include <QKeyEvent>
#include <QPointer>
#include <algorithm>
#include <utility>

#include "platform/forms/controls/Keys.h"
#include "platform/forms/grid/FlexGrid.h"

namespace forms {

// Tab is a key of the grid, not the toolkit's.
bool FlexGrid::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            keyPressEvent(key);
            return true;
        }
    }
    return GridView::event(event);
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    const QPointer<FlexGrid> self = this;
    event->accept();
    int code = KeyCodeOf(*event);
    if (code == 0) return;
    KeyDown.Fire(code, ShiftOf(event->modifiers()));
    if (!self || code == 0 || !hasFocus()) return;  // dropped, or the handler sent the focus elsewhere
    int ascii = KeyAsciiOf(*event);
    if (ascii) {
        KeyPress.Fire(ascii);
        if (!self || ascii == 0 || !hasFocus()) return;
    }
    KeyDefault(*event, ascii);
}

void FlexGrid::KeyDefault(QKeyEvent& event, int) {
    const bool control = event.modifiers() & Qt::ControlModifier;
    const int page = std::max(1, viewport()->height() / RowPixels - FixedRows() - 1);
    const int firstRow = RowAxis().NextShown(FixedRows(), 1);
    const int lastRow = RowAxis().NextShown(Rows() - 1, -1);
    switch (event.key()) {
        case Qt::Key_Up:
            return StepRow(-1);
        case Qt::Key_Down:
            return StepRow(1);
        case Qt::Key_PageUp:
            return StepRow(-page);
        case Qt::Key_PageDown:
            return StepRow(page);
        case Qt::Key_Left:
        case Qt::Key_Right: {
            const int step = event.key() == Qt::Key_Left ? -1 : 1;
            const int col = ColAxis().NextShown(col_ + step, step);
            if (col >= 0) MoveTo(row_, col);
            return;
        }
        case Qt::Key_Home:
        case Qt::Key_End: {
            const bool home = event.key() == Qt::Key_Home;
            const int row = control ? (home ? firstRow : lastRow) : row_;
            const int col = home ? ColAxis().NextShown(0, 1) : ColAxis().NextShown(Cols() - 1, -1);
            if (row >= 0 && col >= 0) GoTowards(row, col);
            return;
        }
        case Qt::Key_Tab:
        case Qt::Key_Backtab: {
            const bool forward = event.key() == Qt::Key_Tab && !(event.modifiers() & Qt::ShiftModifier);
            if (control || !StepCol(forward ? 1 : -1)) GridView::focusNextPrevChild(forward);
            return;
        }
        default:
            event.ignore();
    }
}

// Moves by rows that are shown; more than there are goes to the first or last.
void FlexGrid::StepRow(int step) {
    const int direction = step < 0 ? -1 : 1;
    int target = row_;
    for (int left = std::abs(step); left > 0; --left) {
        const int next = RowAxis().NextShown(target + direction, direction);
        if (next < 0) break;
        target = next;
    }
    GoTowards(target, col_);
}

// Moves to the row, or to the nearest before it that takes the cursor: the foot of a grid refuses it.
void FlexGrid::GoTowards(int row, int col) {
    const int back = row < row_ ? 1 : -1;
    for (; row >= 0 && (row_ - row) * back > 0; row = RowAxis().NextShown(row + back, back))
        if (MoveTo(row, col)) return;
    if (col != col_) MoveTo(row_, col);
}

bool FlexGrid::StepCol(int step) {
    int row = row_;
    int col = ColAxis().NextShown(col_ + step, step);
    if (col < 0) {
        row = RowAxis().NextShown(row_ + step, step);
        col = ColAxis().NextShown(step > 0 ? 0 : Cols() - 1, step);
    }
    return row >= 0 && col >= 0 && MoveTo(row, col);
}

void FlexGrid::FireMouse(const Event<int, int, int, int>& event, const QMouseEvent& mouse) {
    mouse_ = mouse.position().toPoint();
    const Qt::MouseButtons held = mouse.buttons() | mouse.button();
    const int button = held & Qt::LeftButton ? 1 : held & Qt::RightButton ? 2 : 0;
    event.Fire(button, ShiftOf(mouse.modifiers()), TwipsFromPixels(mouse_.x(), this),
               TwipsFromPixels(mouse_.y(), this));
}

void FlexGrid::mousePressEvent(QMouseEvent* event) {
    const QPointer<FlexGrid> self = this;
    pressed_ = doubled_ = false;
    if (!LeaveCell() || !self) return;  // a refused edit stays open, and the click is not carried out
    pressed_ = true;
    before_ = {row_, col_};
    FireMouse(MouseDown, *event);
    if (!self || event->button() != Qt::LeftButton) return;
    const int row = MouseRow();
    const int col = MouseCol();
    if (row >= FixedRows() && col >= 0) MoveTo(row, col);
}

void FlexGrid::mouseMoveEvent(QMouseEvent* event) {
    FireMouse(MouseMove, *event);
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event) {
    if (!pressed_) return;
    pressed_ = false;
    const QPointer<FlexGrid> self = this;
    FireMouse(MouseUp, *event);
    if (!self || event->button() != Qt::LeftButton || !viewport()->rect().contains(mouse_)) return;
    const QPoint place = mouse_;
    const int row = MouseRow();
    const int col = MouseCol();
    if (!std::exchange(doubled_, false)) Click.Fire();
    if (!self || col < 0 || row < 0 || row >= Rows() || col >= Cols()) return;
    if (row < FixedRows())
        HeadingClicked(col);
    else if (row == row_ && col == col_)
        CellPressed(place, before_ == std::pair(row, col));
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPointer<FlexGrid> self = this;
    mousePressEvent(event);
    if (!self || !pressed_ || event->button() != Qt::LeftButton) return;
    doubled_ = true;  // its release is no second Click
    DblClick.Fire();
}

void FlexGrid::leaveEvent(QEvent* event) {
    mouse_ = {-1, -1};
    GridView::leaveEvent(event);
}

void FlexGrid::CellPressed(const QPoint&, bool) {}

}  // namespace forms
