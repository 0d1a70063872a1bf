#pragma once

#include <algorithm>

#include "platform/forms/html/Tree.h"

namespace forms::html {

// How far a parsed document goes: how deep its nodes and its tables stand in one another, and the most cells
// of a row.
struct Extent {
    int Depth = 0, Tables = 0, Cells = 0;

    explicit Extent(const Tree& tree) {
        if (tree.Body()) Add(*tree.Body(), 1, 0);
    }
    // The deepest that Bounded lets through: each level holds its open tags, of which some may be repeated,
    // and a table with its group, row and cell.
    static int Deepest(const Bounds& bounds) {
        return (bounds.Tables + 1) * (2 * Bounds::Open + Bounds::Formats + 4);
    }

  private:
    void Add(const GumboNode& node, int depth, int tables) {
        int cells = 0;
        tables += Is(node, GUMBO_TAG_TABLE) ? 1 : 0;
        for (const GumboNode* child : ChildrenOf(node)) {
            cells += Is(*child, GUMBO_TAG_TD) || Is(*child, GUMBO_TAG_TH) ? 1 : 0;
            Add(*child, depth + 1, tables);
        }
        Depth = std::max(Depth, depth);
        Tables = std::max(Tables, tables);
        Cells = std::max(Cells, cells);
    }
};

}  // namespace forms::html
