#include "platform/forms/html/DisplayList.h"

#include <algorithm>
#include <tuple>

namespace forms::html {
namespace {

int RowAt(const std::vector<Row>& rows, int y) {
    const auto next =
        std::upper_bound(rows.begin(), rows.end(), y, [](int at, const Row& row) { return at < row.Top; });
    if (next == rows.begin() || y >= std::prev(next)->Bottom) return -1;
    return static_cast<int>(next - rows.begin()) - 1;
}

int ColumnAt(const Row& row, int x) {
    int column = 0;
    for (const Cell& cell : row.Cells)
        if (cell.Left <= x) column = cell.Column;
    return column;
}

}  // namespace

void DisplayList::Arrange() {
    for (Word& word : Words) {
        word.Row = RowAt(Rows, word.Box.center().y());
        if (word.Row >= 0) word.Column = ColumnAt(Rows[static_cast<std::size_t>(word.Row)], word.Box.left());
    }
    const auto place = [this](const Word& word) {
        const int top = word.Row < 0 ? word.Box.top() : Rows[static_cast<std::size_t>(word.Row)].Top;
        return std::tuple(top, word.Column, word.Box.bottom(), word.Box.left());
    };
    std::stable_sort(Words.begin(), Words.end(),
                     [&](const Word& a, const Word& b) { return place(a) < place(b); });
}

}  // namespace forms::html
