#pragma once

#include <optional>
#include <string>

#include "platform/basic/Value.h"
#include "queries/Sheet.h"

// How the cells of a sheet read, by the kinds of their columns.
namespace queries {

// As a person reads it: amounts as reports write them, in the groups of the user's locale; quantities as
// short as they are; 01-Apr-2001; "yes" or "no". "" for Null. Texts are whole UTF-8 on one line.
std::string Shown(Kind kind, const basic::Value& value);

// As another program reads it: figures without groups, amounts with two decimals, 2001-04-01. "" for Null.
// Texts are whole UTF-8, their lines kept.
std::string Plain(Kind kind, const basic::Value& value);

// The number in a column of figures; amounts rounded to paise, as they are shown. None for Null, and for what
// is not finite, as a damaged file may hold it.
std::optional<double> FigureOf(Kind kind, const basic::Value& value);

// The date of a column of dates. None for Null and for what lies outside the calendar.
std::optional<basic::Date> CalendarDate(const basic::Value& value);

inline bool IsFigure(Kind kind) {
    return kind == Kind::Number || kind == Kind::Amount || kind == Kind::Quantity;
}

bool IsTree(const Sheet& sheet);  // whether a row lies below another

// The column whose texts stand further in the deeper their rows lie in a tree: the first of texts.
std::size_t TreeColumn(const Sheet& sheet);

}  // namespace queries
