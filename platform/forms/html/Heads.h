#pragma once

#include <vector>

#include "platform/forms/html/DisplayList.h"
#include "platform/forms/html/Fonts.h"

namespace forms::html {

// What a row of a table is: figures, bold text only, or nothing but rules.
enum class Kind { Text, Heading, Blank };

// A row, or a line of text outside of tables, in the pixels of the document.
struct Line {
    int Top, Bottom;  // the first pixel below it
    Kind Is;
    int Cells;   // with words in them
    bool Apart;  // in letters larger than usual, or outside of tables: no part of what stands above
};

// The rows of a list, moved down by `top`, then the words outside of tables, a line each.
std::vector<Line> LinesOf(const DisplayList& list, const Fonts& fonts, int top);

// The heads of columns, with the name that stands above them.
struct Heads {
    int Top, Bottom;
    int LastRow;  // the last row below them begins here
};

// Of lines from top to bottom.
std::vector<Heads> HeadsAmong(const std::vector<Line>& lines);

}  // namespace forms::html
