#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "queries/LedgerSums.h"
#include "queries/Reading.h"

namespace queries {

// What the lists of stock share. A select on the stock tables of the year; raises NoSuchTable where the year
// was made without them.
std::unique_ptr<ado::Recordset> SelectStock(Reading& books, const std::string& select);

// The same by window, for one call of it.
ado::RowWindow StockWindow(Reading& books, const std::string& select);

// Whether the year was made with stock.
bool HasStock(Reading& books);

// Of the current row: none for Null.
std::optional<double> FigureOf(ado::Recordset& row, const char* field);
std::int32_t NumberOf(ado::Recordset& row, const char* field);  // 0 for Null
std::string TextOf(ado::Recordset& row, const char* field);     // "" for Null
std::optional<basic::Date> DayOf(ado::Recordset& row, const char* field);

// Whether a day lies in a range; one that is not known lies only in that of all days.
bool Holds(const Range& range, const std::optional<basic::Date>& day);

}  // namespace queries
