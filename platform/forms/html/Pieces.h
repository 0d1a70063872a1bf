#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace forms::html {

class Fonts;

// A long table is laid out in pieces of some rows each, since the layout of one table costs the square of its
// rows. What they share are the widths of the columns: those of the sample, the few rows whose cells ask for
// the most room in any way, laid out as one table.
struct LongTable {
    std::string Style;   // of its tag, without its width
    std::string Width;   // "width:100%;" or ""
    std::string Sample;  // rows, with the widths their cells ask for
    int Columns = 0;
};

// A part of a document's body that is laid out by itself, below the one before.
struct Piece {
    std::string Markup;  // of the rows only, if it is of a long table
    int Table = -1;      // index of the long table that it is of; -1 if it is of none
    int Rows = 0;
};

struct Pieces {
    std::vector<LongTable> Tables;
    std::vector<Piece> Parts;
};

// Cuts the body of a document text. Only the long tables that stand in the body itself are cut.
Pieces Cut(std::string_view document, Fonts& fonts);

}  // namespace forms::html
