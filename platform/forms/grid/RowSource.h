#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace forms {

// Where a list view takes its lines from, one by one, when it draws them.
class RowSource {
  public:
    virtual ~RowSource() = default;
    virtual int Count() const = 0;
    // Column 0 is the line's Text, the others are its SubItems.
    virtual std::string Text(int row, int column) const = 0;
    virtual std::string Key(int row) const = 0;
};

// The rows of a source in the order of one column's texts, ignoring case; rows of equal text keep their
// order, descending too. Four bytes a row remain; the texts are held only while sorting.
std::vector<std::uint32_t> SortedRows(const RowSource& source, int column, bool descending);

}  // namespace forms
