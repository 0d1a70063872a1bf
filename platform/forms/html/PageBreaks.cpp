#include "platform/forms/html/PageBreaks.h"

#include <algorithm>

namespace forms::html {
namespace {

enum class Kind { Text, Heading, Blank };

// What must not be cut: from the first to the last pixel.
struct Span {
    int Top, Bottom;
    Kind Is;
};
using Spans = std::vector<Span>;

// What each row of the list is.
std::vector<Kind> KindsOf(const DisplayList& list, const Fonts& fonts) {
    std::vector<Kind> kinds(list.Rows.size(), Kind::Blank);
    for (const Word& word : list.Words) {
        if (word.Row < 0) continue;
        Kind& kind = kinds[static_cast<std::size_t>(word.Row)];
        const bool heading = fonts.Font(word.Font).bold() && kind != Kind::Text;
        kind = heading ? Kind::Heading : Kind::Text;
    }
    return kinds;
}

// A row that is higher than a page may be cut between its lines.
void Add(const DisplayList& list, const Fonts& fonts, int top, int pageHeight, Spans& spans) {
    const auto add = [&](int first, int last, Kind kind) {
        if (last - first < pageHeight) spans.push_back({top + first, top + last, kind});
    };
    const std::vector<Kind> kinds = KindsOf(list, fonts);
    for (std::size_t i = 0; i < kinds.size(); ++i) add(list.Rows[i].Top, list.Rows[i].Bottom - 1, kinds[i]);
    for (const Word& word : list.Words)
        add(word.Box.top(), word.Box.bottom(),
            word.Row < 0 ? Kind::Text : kinds[static_cast<std::size_t>(word.Row)]);
    for (const Rule& rule : list.Rules) add(rule.Box.top(), rule.Box.bottom(), Kind::Blank);
}

// The spans that begin above `limit`, from the lowest one; ends where `visit` gives false or above `start`.
template <class Visit>
void Upwards(const Spans& spans, int start, int limit, Visit visit) {
    const auto above = [](const Span& span, int y) { return span.Top < y; };
    auto span = std::lower_bound(spans.begin(), spans.end(), limit, above);
    while (span != spans.begin() && (--span)->Top >= start)
        if (!visit(*span)) return;
}

// The lowest place at or above `limit` at which no span is cut; `limit` itself if there is none.
int PlaceToCut(const Spans& spans, int start, int limit) {
    int place = limit;
    Upwards(spans, start, limit, [&](const Span& span) {
        if (span.Bottom >= place) place = std::min(place, span.Top);
        return true;
    });
    return place > start ? place : limit;
}

int AboveHeadings(const Spans& spans, int start, int place, int pageHeight) {
    int heading = place;
    Upwards(spans, start, place, [&](const Span& span) {
        if (span.Is == Kind::Heading) heading = std::min(heading, span.Top);
        return span.Is != Kind::Text;
    });
    return heading > start + pageHeight / 2 ? heading : place;
}

}  // namespace

std::vector<int> PageBreaks(Layout& layout, int pageHeight) {
    Spans spans;
    for (int piece = 0; piece < layout.Pieces(); ++piece)
        Add(layout.List(piece), layout.FontsUsed(), layout.Top(piece), pageHeight, spans);
    std::sort(spans.begin(), spans.end(), [](const Span& a, const Span& b) { return a.Top < b.Top; });
    std::vector<int> breaks{0};
    while (breaks.back() + pageHeight < layout.Height()) {
        const int start = breaks.back();
        const int place = PlaceToCut(spans, start, start + pageHeight);
        breaks.push_back(AboveHeadings(spans, start, place, pageHeight));
    }
    breaks.push_back(layout.Height());
    return breaks;
}

}  // namespace forms::html
