#include "platform/ado/store/Pattern.h"

#include <algorithm>
#include <string>

#include "platform/ado/dialect/Refusal.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

constexpr char32_t Last = 0x10FFFF;

std::u32string FoldedCodes(std::string_view text) {
    std::u32string codes;
    const std::u16string units = basic::ToUtf16(basic::FoldCase(text));
    for (std::size_t at = 0; at < units.size(); ++at) {
        char32_t code = units[at];
        if (code >= 0xD800 && code < 0xDC00 && at + 1 < units.size())
            code = 0x10000 + ((code - 0xD800) << 10) + (units[++at] - 0xDC00U);
        codes += code;
    }
    return codes;
}

[[noreturn]] void RefusePattern(std::string_view pattern) {
    Refuse(error::Statement, "The pattern '" + std::string(pattern) +
                                 "' holds a set of characters that does not read: [abc], [a-f] or [!a-f]");
}

}  // namespace

Pattern::Pattern(std::string_view text) {
    const std::u32string codes = FoldedCodes(text);
    for (std::size_t at = 0; at < codes.size(); ++at) {
        Element& element = elements_.emplace_back();
        if (codes[at] == U'%') {
            element.run = true;
        } else if (codes[at] == U'_') {
            element.ranges = {{0, Last}};
        } else if (codes[at] != U'[') {
            element.ranges = {{codes[at], codes[at]}};
        } else {
            const std::size_t end = codes.find(U']', at);
            std::u32string_view inside(codes);
            inside = inside.substr(at + 1, end == codes.npos ? 0 : end - at - 1);
            element.outside = inside.size() > 1 && inside.front() == U'!';
            if (element.outside) inside.remove_prefix(1);
            if (end == codes.npos || inside.empty()) RefusePattern(text);
            for (std::size_t in = 0; in < inside.size(); ++in) {
                Range range{inside[in], inside[in]};
                if (in + 2 < inside.size() && inside[in + 1] == U'-') range.last = inside[in += 2];
                if (range.first > range.last) RefusePattern(text);
                element.ranges.push_back(range);
            }
            at = end;
        }
    }
}

bool Pattern::Element::Takes(char32_t c) const {
    const bool within =
        std::ranges::any_of(ranges, [c](const Range& range) { return range.first <= c && c <= range.last; });
    return within != outside;
}

bool Pattern::Matches(std::string_view text) const {
    // Greedy with one way back: to the last run, one character further.
    const std::u32string codes = FoldedCodes(text);
    std::size_t at = 0, in = 0, backAt = 0, backIn = elements_.size() + 1;
    while (at < codes.size()) {
        if (in < elements_.size() && elements_[in].run) {
            backIn = ++in;
            backAt = at;
        } else if (in < elements_.size() && elements_[in].Takes(codes[at])) {
            ++at;
            ++in;
        } else if (backIn <= elements_.size()) {
            at = ++backAt;
            in = backIn;
        } else {
            return false;
        }
    }
    return std::all_of(elements_.begin() + static_cast<std::ptrdiff_t>(in), elements_.end(),
                       [](const Element& element) { return element.run; });
}

}  // namespace ado
