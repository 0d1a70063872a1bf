#pragma once

#include <QRect>
#include <QRgb>
#include <string>
#include <string_view>
#include <vector>

namespace forms::html {

// A piece of a text in one font on one line, usually a word.
struct Word {
    QRect Box;
    std::uint32_t Begin = 0, Length = 0;  // in DisplayList::Text
    std::uint32_t Font = 0;
    QRgb Colour = 0;
    int Row = -1;    // of a table, counted through the list; -1 outside of tables
    int Column = 0;  // the first one of its cell
};

struct Rule {
    QRect Box;
    QRgb Colour = 0;
};

struct Cell {
    int Left, Column;
};
struct Row {
    int Top, Bottom;  // the first pixel below it
    std::vector<Cell> Cells;
};

// What a layout comes to: the words and lines to paint, from the top left corner, words in reading order. The
// layout itself is not kept: it takes a hundred times the room.
struct DisplayList {
    std::string Text;
    std::vector<Word> Words;
    std::vector<Rule> Rules;
    std::vector<Row> Rows;  // of the outermost tables, downwards
    int Width = 0, Height = 0;

    std::string_view TextOf(const Word& word) const {
        return std::string_view(Text).substr(word.Begin, word.Length);
    }
    // Says of each word in which row and cell it is, and puts the words into reading order.
    void Arrange();
};

}  // namespace forms::html
