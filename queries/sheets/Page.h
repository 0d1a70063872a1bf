#pragma once

#include <string>

#include "queries/Sheet.h"

namespace queries {

constexpr std::size_t MostOnPaper = 50'000;  // rows: some 2,000 sheets, laid out in memory

// A sheet as a page for the report view: its title, the heads, which stand again on each sheet of paper, its
// rows and, where columns are summed, a line of totals. Raises 5 where there are more rows than MostOnPaper,
// and what reading raises.
std::string PageOf(const Sheet& sheet);

}  // namespace queries
