#pragma once

#include <string>

#include "platform/forms/html/Tree.h"

namespace forms::html {

// Whether cells keep the widths they ask for, or leave them to the columns they are in.
enum class Widths { Own, Columns };

// Writes the markup of a node for the layout: the tags that stand for how a text looks and how it is placed,
// with their old attributes as styles, in any spelling; nothing that would fetch, run or restyle anything.
class Cleaner {
  public:
    static std::string Node(const GumboNode& node, Widths widths);
    // The styles of a table's own tag; with Widths::Columns without its width.
    static std::string TableStyle(const GumboNode& table, Widths widths);

  private:
    explicit Cleaner(Widths widths) : widths_(widths) {}
    void Add(const GumboNode& node);
    void AddChildren(const GumboNode& node);
    void Open(const GumboNode& node, const char* name);

    std::string out_;
    const Widths widths_;
    int cellPadding_ = 0;  // of the table around, in pixels
};

// How many columns a cell takes: 1 for an attribute that makes no sense, Bounds::Span at most.
int SpanOf(const GumboNode& cell, const char* attribute = "colspan");

}  // namespace forms::html
