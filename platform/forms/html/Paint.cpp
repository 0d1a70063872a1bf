#include "platform/forms/html/Paint.h"

#include <QPalette>

#include "platform/forms/controls/Text.h"

namespace forms::html {
namespace {

void PaintPiece(QPainter& painter, Layout& layout, int piece, const QRect& clip, const Range& marked) {
    const DisplayList& list = layout.List(piece);
    const QPoint origin(0, layout.Top(piece));
    const QPalette colours;
    for (const Rule& rule : list.Rules) {
        const QRect box = rule.Box.translated(origin);
        if (box.intersects(clip)) painter.fillRect(box, QColor::fromRgba(rule.Colour));
    }
    for (std::size_t i = 0; i < list.Words.size(); ++i) {
        const Word& word = list.Words[i];
        const QRect box = word.Box.translated(origin);
        if (!box.intersects(clip)) continue;
        const bool isMarked = marked.Holds({piece, static_cast<int>(i)});
        if (isMarked) painter.fillRect(box, colours.highlight());
        painter.setPen(isMarked ? colours.highlightedText().color() : QColor::fromRgba(word.Colour));
        painter.setFont(layout.FontsUsed().Font(word.Font));
        const int baseline = box.top() + layout.FontsUsed().MetricsOf(word.Font).Ascent;
        painter.drawText(QPoint(box.left(), baseline), ToQt(list.TextOf(word)));
    }
}

}  // namespace

void Paint(QPainter& painter, Layout& layout, const QRect& clip, const Range& marked) {
    for (int piece = layout.PieceAt(clip.top());
         piece < layout.Pieces() && layout.Top(piece) <= clip.bottom(); ++piece)
        PaintPiece(painter, layout, piece, clip, marked);
}

}  // namespace forms::html
