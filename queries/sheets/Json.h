#pragma once

#include <ostream>

#include "queries/Sheet.h"

namespace queries {

// Writes a sheet as a JSON array with an object for each row, keyed by the columns' names: figures as
// numbers, flags as true and false, dates as "2001-04-01", null where nothing stands. A sheet that is a tree
// has "level" as well.
void WriteJson(const Sheet& sheet, std::ostream& out);

}  // namespace queries
