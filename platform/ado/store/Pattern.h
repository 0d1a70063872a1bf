#pragma once

#include <string_view>
#include <vector>

namespace ado {

// A pattern of Like as a host's condition knows it: % any run of characters, _ any one, [a-f] one of a set,
// [!a-f] one outside it; a bracket, a % or a _ by itself stands in a set of its own. Case does not count.
class Pattern {
  public:
    explicit Pattern(std::string_view text);  // raises error::Statement for a set that does not read
    bool Matches(std::string_view text) const;

  private:
    struct Range {
        char32_t first, last;
    };
    struct Element {
        bool run = false;           // any number of characters
        bool outside = false;       // of the ranges
        std::vector<Range> ranges;  // no others but for a run
        bool Takes(char32_t c) const;
    };
    std::vector<Element> elements_;
};

}  // namespace ado
