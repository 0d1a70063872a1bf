#pragma once

#include <string>
#include <string_view>

namespace forms::html {

// What a parser and a layout take in time. A parser's time grows with the square of the depth, a layout's
// doubles with each table in a table.
struct Bounds {
    static constexpr int Cells = 100;        // in a row
    static constexpr int Span = 20;          // columns or rows that a cell takes
    static constexpr int Open = 40;          // tags in one another between two cells
    static constexpr int Formats = 6;        // of them such as <b>, which go on in the next paragraph
    static constexpr int CellTags = 1000;    // in one cell
    static constexpr int BodyTags = 100000;  // outside of tables

    int Tables;        // in one another
    std::size_t Text;  // bytes in a row; what is longer goes on in the same column of a further row
};

// The document with the tags that keep to the bounds. One beyond them counts for nothing, what is in it
// stays: the rows of a table too many become rows of the table around it. Nor does a comment or a script that
// nothing ends swallow the rest. A report is given back as it is. `tables` is how many may stand in one
// another.
std::string Bounded(std::string_view document, const Bounds& bounds);

}  // namespace forms::html
