#include "platform/forms/grid/RowSource.h"

#include <algorithm>
#include <string_view>

#include "platform/basic/Text.h"

namespace forms {

namespace {

// A row with the first bytes of its folded text, which decide most comparisons without touching the text
// itself.
struct Keyed {
    std::uint64_t head;
    std::uint64_t place;  // of the text in the one long string that holds them all
    std::uint32_t length;
    std::uint32_t row;
};

std::uint64_t Head(std::string_view text) {
    std::uint64_t head = 0;
    for (std::size_t i = 0; i < sizeof head; ++i)
        head = head << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    return head;
}

}  // namespace

// The order of folded texts by their bytes is the order of CompareText.
std::vector<std::uint32_t> SortedRows(const RowSource& source, int column, bool descending) {
    std::string texts;
    std::vector<Keyed> keyed(static_cast<std::size_t>(source.Count()));
    for (std::uint32_t row = 0; row < keyed.size(); ++row) {
        const std::string text = basic::FoldCase(source.Text(static_cast<int>(row), column));
        keyed[row] = {Head(text), texts.size(), static_cast<std::uint32_t>(text.size()), row};
        texts += text;
    }
    const auto text = [&texts](const Keyed& k) { return std::string_view(texts).substr(k.place, k.length); };
    const auto less = [&text](const Keyed& a, const Keyed& b) {
        return a.head != b.head ? a.head < b.head : text(a) < text(b);
    };
    std::stable_sort(keyed.begin(), keyed.end(),
                     [&](const Keyed& a, const Keyed& b) { return descending ? less(b, a) : less(a, b); });
    std::vector<std::uint32_t> rows(keyed.size());
    std::transform(keyed.begin(), keyed.end(), rows.begin(), [](const Keyed& k) { return k.row; });
    return rows;
}

}  // namespace forms
