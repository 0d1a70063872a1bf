#include "platform/forms/html/PageBreaks.h"

#include <algorithm>

#include "platform/forms/html/Heads.h"

namespace forms::html {
namespace {

// What must not be cut: from the first to the last pixel.
struct Span {
    int Top, Bottom;
    Kind Is;
};
using Spans = std::vector<Span>;

// A row that is higher than a page may be cut between its lines of text.
void Add(const DisplayList& list, const std::vector<Line>& lines, int top, int pageHeight, Spans& spans) {
    const auto add = [&](int first, int last, Kind kind) {
        if (last - first < pageHeight) spans.push_back({first, last, kind});
    };
    for (const Line& line : lines) add(line.Top, line.Bottom - 1, line.Is);
    for (const Word& word : list.Words)
        if (word.Row >= 0)
            add(top + word.Box.top(), top + word.Box.bottom(), lines[static_cast<std::size_t>(word.Row)].Is);
    for (const Rule& rule : list.Rules) add(top + rule.Box.top(), top + rule.Box.bottom(), Kind::Blank);
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

bool IsCut(const Spans& spans, int start, int place) {
    bool cut = false;
    Upwards(spans, start, place, [&](const Span& span) { return !(cut = span.Bottom >= place); });
    return cut;
}

// The part of `rest` that a page holds below the heads.
Page CutPage(const Spans& spans, const Page& rest, int pageHeight) {
    Page page = rest;
    const int room = pageHeight - page.Heads.Height(), top = page.Body.Top;
    if (page.Body.Height() > room)
        page.Body.Bottom = AboveHeadings(spans, top, PlaceToCut(spans, top, top + room), room);
    return page;
}

// The heads of the rows that go on at `top`; none for those that end above it.
Band HeadsAt(const std::vector<Heads>& heads, int top, int pageHeight) {
    const auto above = [](int place, const Heads& one) { return place < one.Bottom; };
    const auto next = std::upper_bound(heads.begin(), heads.end(), top, above);
    if (next == heads.begin() || std::prev(next)->LastRow < top) return {};
    const Band band{std::prev(next)->Top, std::prev(next)->Bottom};
    return band.Height() <= pageHeight / 3 ? band : Band{};
}

}  // namespace

std::vector<Page> CutPages(Layout& layout, int pageHeight) {
    Spans spans;
    std::vector<Line> lines;
    for (int piece = 0; piece < layout.Pieces(); ++piece) {
        const DisplayList& list = layout.List(piece);
        const auto own = LinesOf(list, layout.FontsUsed(), layout.Top(piece));
        Add(list, own, layout.Top(piece), pageHeight, spans);
        lines.insert(lines.end(), own.begin(), own.end());
    }
    std::sort(spans.begin(), spans.end(), [](const Span& a, const Span& b) { return a.Top < b.Top; });
    std::stable_sort(lines.begin(), lines.end(), [](const Line& a, const Line& b) { return a.Top < b.Top; });
    const std::vector<Heads> heads = HeadsAmong(lines);
    std::vector<Page> pages;
    for (int top = 0; top == 0 || top < layout.Height();) {
        const Band above = HeadsAt(heads, top, pageHeight);
        Page page = CutPage(spans, {{top, layout.Height()}, above}, pageHeight);
        if (above.Height() > 0 && IsCut(spans, top, page.Body.Bottom))  // the row needs the room of the heads
            page = CutPage(spans, {{top, layout.Height()}, {}}, pageHeight);
        top = page.Body.Bottom;
        pages.push_back(page);
    }
    return pages;
}

}  // namespace forms::html
