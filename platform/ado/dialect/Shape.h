#pragma once

#include <string>
#include <string_view>
#include <vector>

// A statement is cut into its shape and its literals in one pass over the bytes; only a shape seen for the
// first time is parsed and translated.
namespace ado {

struct Literal {
    bool isText = false;
    std::string text;   // of a text: without its quotes, doubled quotes undone; of a number: as written
    double number = 0;  // of a number, and of a date: the days from 30-Dec-1899
};

struct Shape {
    std::string key;                // the statement with each literal replaced by a mark and blanks folded
    std::vector<Literal> literals;  // in the order of the statement
};

// Raises ado::error::Statement for a literal that does not end and for anything after the statement. Dates
// between # signs are literals only where they are asked for.
Shape ShapeOf(std::string_view statement, bool dates = false);

}  // namespace ado
