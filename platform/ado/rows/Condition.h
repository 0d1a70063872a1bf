#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/dialect/Plan.h"
#include "platform/ado/dialect/StoreSql.h"
#include "platform/ado/rows/RowStore.h"
#include "platform/basic/Value.h"

namespace ado {

// One comparison of a record set's Filter or Find: a field, an operator, and a number or a text.
struct Comparison {
    enum class Operator { Equal, Unequal, Less, LessOrEqual, Greater, GreaterOrEqual, Like };

    std::string field;
    Operator op = Operator::Equal;
    bool isText = false;
    std::string text;
    double number = 0;
    bool isTruth = false;  // the words True (number 1) and False
    bool orElse = false;   // it begins what stands behind an Or

    // Whether the field of the row meets it. Null meets none; a text that is no number is just unequal to a
    // number; texts compare without regard to case; True equals 1 and -1. Like knows % and *, at either end
    // of its text; all else in it stands for itself.
    bool Meets(const RowStore& rows, std::size_t row, std::size_t column) const;
};

// "Field = 12 [And Other Like 'a*' ...] [Or ...]", And before Or. Raises BadArgument for anything else.
std::vector<Comparison> ReadCondition(std::string_view condition);

// The place of a field among the outputs: "Table.Field" is that very one, a bare name the first that bears
// it.
std::optional<std::size_t> FindOutput(const std::vector<Output>& outputs, std::string_view name);

// The comparison in the store's words, with the value as its n-th parameter, where it means the same there as
// in Meets: on a plain column and a value of its own kind, no Like and not behind an Or.
std::optional<std::string> ComparisonSql(const StoreSql& words, const Comparison& comparison,
                                         const Output& output, std::size_t parameter);

// The value that goes with ComparisonSql.
basic::Value ComparedValue(const Comparison& comparison, const Output& output);

}  // namespace ado
