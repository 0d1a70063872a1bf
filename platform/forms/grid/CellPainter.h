#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>
#include <climits>
#include <string>

#include "platform/forms/grid/GridModel.h"

class QPainter;
class QWidget;

namespace forms {

enum class CellButton { None, Drop, Ellipsis };
enum class CellMark { None, Highlighted, Current };

// All that is to be seen of one cell.
struct CellShown {
    QString Text;
    Alignment Align = Alignment::Left;
    QColor Fore;  // invalid: the grid's own
    QColor Back;
    // Where the empty cells left of it begin: a right-aligned text may stand out into them.
    int BlankFrom = INT_MAX;
    bool Header = false;
    bool Bold = false;
    bool Italic = false;
    bool HasCheck = false;
    bool Checked = false;
    CellMark Mark = CellMark::None;
    CellButton Button = CellButton::None;
    std::string ButtonPicture;  // instead of the dots
    std::string Picture;        // left of the text; in the middle of a cell without text
    int SortArrow = 0;          // 1 ascending, -1 descending
};

// Draws cells in the colours and the font of a widget. `active`: the widget has the focus, so marks are
// bright.
class CellPainter {
  public:
    CellPainter(QPainter& painter, const QWidget& widget, bool gridLines, bool active);
    void Paint(const QRect& cell, const CellShown& shown);

    static QRect ButtonRect(const QRect& cell);
    static QRect CheckRect(const QRect& cell);
    // Twice the room between a text and the sides of its cell.
    static constexpr int Padding = 10;
    static constexpr int ArrowRoom = 12;  // what the mark of a sorted column takes from its heading

  private:
    QColor Ground(const CellShown& shown) const;
    void Lines(const QRect& cell, const CellShown& shown);
    void Check(const QRect& cell, bool checked);
    void Button(const QRect& cell, const CellShown& shown);
    QRect Picture(const QRect& room, const CellShown& shown);
    void Text(const QRect& room, const CellShown& shown);
    void Arrow(QRect& room, int direction);

    QPainter& painter_;
    const QWidget& widget_;
    bool gridLines_;
    bool active_;
};

QColor OwnColor(unsigned color);   // NoColor is an invalid one
QColor LineColor(const QWidget&);  // of the light lines between cells

}  // namespace forms
