#pragma once

#include <string>

#include "queries/Sheet.h"

namespace queries {

// A sheet as a page for the report view: its title, the heads, which stand again on each sheet of paper, its
// rows and, where columns are summed, a line of totals.
std::string PageOf(const Sheet& sheet);

}  // namespace queries
