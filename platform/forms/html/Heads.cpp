#include "platform/forms/html/Heads.h"

#include <algorithm>
#include <set>

namespace forms::html {

std::vector<Line> LinesOf(const DisplayList& list, const Fonts& fonts, int top) {
    std::vector<Line> lines;
    for (const Row& row : list.Rows)
        lines.push_back({top + row.Top, top + row.Bottom, Kind::Blank, 0, false});
    std::set<std::pair<int, int>> cells;
    for (const Word& word : list.Words) {
        const QFont& font = fonts.Font(word.Font);
        if (word.Row < 0) {
            lines.push_back({top + word.Box.top(), top + word.Box.bottom() + 1, Kind::Text, 0, true});
            continue;
        }
        Line& line = lines[static_cast<std::size_t>(word.Row)];
        line.Is = font.bold() && line.Is != Kind::Text ? Kind::Heading : Kind::Text;
        line.Apart = line.Apart || font.pixelSize() > fonts.DefaultSize();
        if (cells.emplace(word.Row, word.Column).second) ++line.Cells;
    }
    return lines;
}

// Headings with rules among them that end in one of several cells. Bold words of a single cell may be a
// narration.
std::vector<Heads> HeadsAmong(const std::vector<Line>& lines) {
    std::vector<Heads> found;
    bool goesOn = false;  // whether what comes is still below the last ones found
    for (auto line = lines.begin(); line != lines.end();) {
        const auto end = std::find_if(line, lines.end(),
                                      [](const Line& one) { return one.Is == Kind::Text || one.Apart; });
        const auto first = std::find_if(line, end, [](const Line& one) { return one.Is == Kind::Heading; });
        if (std::any_of(first, end, [](const Line& one) { return one.Cells > 1; })) {
            found.push_back({first->Top, std::prev(end)->Bottom, first->Top});
            goesOn = true;
        }
        if (end == lines.end()) break;
        goesOn = goesOn && !end->Apart;
        if (goesOn) found.back().LastRow = end->Top;
        line = std::next(end);
    }
    return found;
}

}  // namespace forms::html
