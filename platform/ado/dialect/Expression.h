#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/ado/dialect/Plan.h"
#include "platform/ado/dialect/Scope.h"
#include "platform/ado/dialect/StoreSql.h"

namespace ado {

// What a statement is written into, and in whose words.
struct Draft {
    Plan& plan;
    const StoreSql& words;
};

// A piece of a statement in the store's SQL, with what is known of its type.
struct Expression {
    std::string sql;
    ColumnType type = ColumnType::Any;
    std::optional<std::size_t> parameter;  // of a literal: its place in Plan::parameters
    bool isText = false;                   // of a literal: a text
    bool isDate = false;                   // of a literal: a date
    bool isNull = false;                   // the word Null
    std::optional<bool> truth;             // the words True and False
    ColumnRef column;                      // of a plain column
    bool meetsTexts = false;  // a text that reads as a number equals it; so the store has it for columns
    int depth = 0;            // of brackets within brackets, whatever the store's words add

    bool IsNumberLiteral() const { return parameter && !isText; }
};

// `depth` is checked: raises error::Statement beyond what the store's parser takes.
Expression Of(std::string sql, ColumnType type, int depth);
// The depth of brackets around both.
int Around(const Expression& a, const Expression& b);

// Makes the two sides of a comparison fit each other:
// a number beside texts is compared as its text; a text literal beside a number counts as the number that it
// reads as, any other is unequal; beside a boolean 1 and -1 are True, 0 is False, and any other number is
// neither.
void Align(Expression& left, Expression& right, const Draft& draft);

// Whether the comparison goes without regard to case.
bool ComparesTexts(const Expression& left, const Expression& right);

// As an operand of arithmetic, True being -1. Raises error::BadValue for a text; `sign` tells where it stood.
Expression AsNumber(Expression e, const std::string& sign, const Draft& draft);
void RefuseDate(const Expression& e);  // where a text is expected: raises error::BadValue for a date
// As a text, booleans being "True" and "False". Null stays Null. Raises error::BadValue for a date.
Expression AsText(Expression e, const Draft& draft);

// As it may be stored in a column: a literal is converted when it is bound, all else by a function of the
// store that refuses what the column's type refuses.
Expression Stored(const Expression& value, const ColumnInfo& column, const Draft& draft);

}  // namespace ado
