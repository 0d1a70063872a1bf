#pragma once

#include <compare>
#include <optional>
#include <string>

#include "platform/forms/html/Layout.h"

namespace forms::html {

// A word of a laid out document. The same one whatever the width.
struct Place {
    int Piece = 0, Word = 0;
    friend auto operator<=>(const Place&, const Place&) = default;
};

struct Range {
    Place From, To;  // To is the first one behind it
    bool Empty() const { return From >= To; }
    bool Holds(const Place& place) const { return From <= place && place < To; }
};

Range Everything(Layout& layout);
// The word at a point of the document, or the one that is read last above it.
Place PlaceAt(Layout& layout, const QPoint& point);
QRect BoxOf(Layout& layout, const Place& place);

// Lines parted by "\n", cells by tabs: a spreadsheet puts each where it was.
std::string TextOf(Layout& layout, const Range& range);
// The same as a table. What it holds is text only, whatever the document held.
std::string HtmlOf(Layout& layout, const Range& range);

// The words that hold the next place at or behind `from` where the text stands, in any case, from the begin
// again behind the end.
std::optional<Range> Find(Layout& layout, const QString& text, const Place& from);

}  // namespace forms::html
