#pragma once

#include <vector>

#include "platform/basic/Value.h"
#include "queries/Sheet.h"

namespace queries {

// The last row of a sheet whose columns are summed, made up row by row. In a tree only the outermost rows
// count: they hold the sums of those below them.
class Totals {
  public:
    explicit Totals(const Sheet& sheet);

    bool Any() const;  // whether a column is totalled at all
    void Add(std::size_t row);
    basic::Value Of(std::size_t column) const;  // Null where nothing is summed

  private:
    const Sheet& sheet_;
    std::vector<long double> sums_;
};

}  // namespace queries
