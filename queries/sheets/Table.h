#pragma once

#include <ostream>

#include "queries/Sheet.h"

namespace queries {

// Writes a sheet for a terminal: its title, the heads, a line for each row, and a line of totals where
// columns are summed. Columns are as wide as their widest cell, by the places that letters take there;
// figures stand at the right. Parts stand further in than their heads.
void WriteTable(const Sheet& sheet, std::ostream& out);

}  // namespace queries
