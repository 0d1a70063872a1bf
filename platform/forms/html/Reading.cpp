#include "platform/forms/html/Reading.h"

#include <QString>
#include <algorithm>

#include "platform/forms/controls/Text.h"
#include "platform/forms/html/Tree.h"

namespace forms::html {
namespace {

// What stands between two words that follow each other in a list.
enum class Gap { None, Blank, Cell, Line };

Gap Between(const Word& a, const Word& b) {
    if (a.Row != b.Row) return Gap::Line;
    if (a.Row >= 0 && a.Column != b.Column) return Gap::Cell;
    if (a.Box.bottom() == b.Box.bottom()) return b.Box.left() <= a.Box.right() + 1 ? Gap::None : Gap::Blank;
    return a.Row >= 0 ? Gap::Blank : Gap::Line;  // in a cell a new line is a wrapped one
}

// Calls visit(list, word, gap before it) for each word of the range.
template <class Visit>
void Walk(Layout& layout, const Range& range, Visit visit) {
    for (int piece = range.From.Piece; piece <= std::min(range.To.Piece, layout.Pieces() - 1); ++piece) {
        const DisplayList& list = layout.List(piece);
        const Word* before = nullptr;
        for (int i = 0; i < static_cast<int>(list.Words.size()); ++i) {
            if (!range.Holds({piece, i})) continue;
            const Word& word = list.Words[static_cast<std::size_t>(i)];
            visit(list, word, before ? Between(*before, word) : Gap::Line);
            before = &word;
        }
    }
}

// The text of a list, with where each word begins in it.
struct Searched {
    QString Text;
    std::vector<qsizetype> Begins;

    explicit Searched(const DisplayList& list) {
        const Word* before = nullptr;
        for (const Word& word : list.Words) {
            if (before && Between(*before, word) != Gap::None)
                Text += Between(*before, word) == Gap::Blank ? u' ' : u'\n';
            Begins.push_back(Text.size());
            Text += ToQt(list.TextOf(word));
            before = &word;
        }
    }
    int WordAt(qsizetype at) const {
        return static_cast<int>(std::upper_bound(Begins.begin(), Begins.end(), at) - Begins.begin()) - 1;
    }
};

}  // namespace

Range Everything(Layout& layout) {
    layout.LayOutAll();
    return {{0, 0}, {layout.Pieces(), 0}};
}

Place PlaceAt(Layout& layout, const QPoint& point) {
    const int piece = layout.PieceAt(point.y());
    const DisplayList& list = layout.List(piece);
    const QPoint inside(point.x(), point.y() - layout.Top(piece));
    Place place{piece, 0};
    for (int i = 0; i < static_cast<int>(list.Words.size()); ++i) {
        const QRect& box = list.Words[static_cast<std::size_t>(i)].Box;
        const bool above = box.bottom() < inside.y(), sameLine = !above && box.top() <= inside.y();
        if (above || (sameLine && box.left() <= inside.x())) place.Word = i;
    }
    return place;
}

QRect BoxOf(Layout& layout, const Place& place) {
    const DisplayList& list = layout.List(place.Piece);
    if (place.Word >= static_cast<int>(list.Words.size())) return {};
    return list.Words[static_cast<std::size_t>(place.Word)].Box.translated(0, layout.Top(place.Piece));
}

std::string TextOf(Layout& layout, const Range& range) {
    std::string text;
    int column = 0;  // where the line's end stands
    Walk(layout, range, [&](const DisplayList& list, const Word& word, Gap gap) {
        if (gap == Gap::Line) {
            if (!text.empty()) text += '\n';
            column = 0;
        }
        for (; column < word.Column; ++column) text += '\t';
        if (gap == Gap::Blank) text += ' ';
        text += list.TextOf(word);
    });
    if (text.find('\n') == std::string::npos) text.erase(0, text.find_first_not_of('\t'));  // within one row
    return text;
}

std::string HtmlOf(Layout& layout, const Range& range) {
    const std::string text = TextOf(layout, range);
    std::string html = "<html><head><meta charset=\"utf-8\"></head><body><table>";
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        html += "<tr><td>";
        for (const char c : Escaped(std::string_view(text).substr(begin, end - begin)))
            c == '\t' ? html += "</td><td>" : html += c;
        html += "</td></tr>";
        begin = end + 1;
    }
    return html + "</table></body></html>";
}

std::optional<Range> Find(Layout& layout, const QString& text, const Place& from) {
    if (text.isEmpty()) return std::nullopt;
    const int pieces = layout.Pieces();
    for (int step = 0; step <= pieces; ++step) {
        const int piece = (from.Piece + step) % pieces;
        const Searched searched(layout.List(piece));
        const bool behind = step == 0 && from.Word >= static_cast<int>(searched.Begins.size());
        if (searched.Begins.empty() || behind) continue;
        const qsizetype start = step == 0 ? searched.Begins[static_cast<std::size_t>(from.Word)] : 0;
        const qsizetype found = searched.Text.indexOf(text, start, Qt::CaseInsensitive);
        if (found < 0) continue;
        return Range{{piece, searched.WordAt(found)}, {piece, searched.WordAt(found + text.size() - 1) + 1}};
    }
    return std::nullopt;
}

}  // namespace forms::html
