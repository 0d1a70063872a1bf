#pragma once

#include "platform/ado/dialect/Plan.h"
#include "platform/ado/store/Engine.h"
#include "platform/basic/Value.h"

namespace ado {

// The value as a field of the type takes it: numbers in texts are read, whole numbers round half to even, a
// number for a text field becomes its classic text, any non-zero number is True. Null and fields without a
// type take all as it is. Raises BadValue for a text that is no number, 6 "Overflow" for one that is too
// large.
basic::Value ConvertTo(ColumnType type, const basic::Value& value);

// The name that both stores know the same conversion by, as a function of ours.
const char* ConversionTo(ColumnType type);

// A number as a statement's literal is bound: a 32-bit whole one where it is whole.
basic::Value NumberValue(double number);

// The value that a literal of a statement is bound with. `where` names the place in an error's text.
basic::Value LiteralValue(const Literal& literal, const Parameter& parameter, std::string_view where);

// Raises Statement for what a wider dialect takes for a pattern: an opening bracket begins a set of
// characters there. Of ours, % and _ alone stand for other characters.
void CheckPattern(std::string_view pattern);

void Bind(EngineStatement& statement, int index, const basic::Value& value);

}  // namespace ado
