#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace ado {

// Numbers for the rows of a table, found by a whole number that stands in one of its fields. Several rows may
// bear a key, and none.
struct KeyedNumbers {
    std::string table, key;
    std::string where;  // only rows whose field `where` is `is`
    std::int32_t is = 0;
    std::vector<std::string> columns;                   // that are set, of the type Double
    std::map<std::int64_t, std::vector<double>> lines;  // by the key: a number for each column
    std::optional<double> others;  // for all columns of the rows without a line; else they stay
};

}  // namespace ado
