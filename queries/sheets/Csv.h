#pragma once

#include <ostream>

#include "queries/Sheet.h"

namespace queries {

// Writes a sheet as comma-separated UTF-8 (RFC 4180): the columns' names, then its rows; no totals. A sheet
// that is a tree has a last column "level". A text that a spreadsheet program would take for a formula gets
// an apostrophe in front; figures stay figures.
void WriteCsv(const Sheet& sheet, std::ostream& out);

}  // namespace queries
