#pragma once

#include <filesystem>
#include <functional>

#include "queries/Sheet.h"

namespace queries {

// Writes a sheet as a spreadsheet (.xlsx), one row in memory at a time: dates and figures as such, texts
// never as formulas, the heads frozen and with filters, each column as wide as its widest cell, the parts of
// a tree to be folded away. Summed columns have a total below by a formula: of the rows that a filter leaves,
// in a tree of the outermost ones. The file is whole or not there; `whole` is called before it takes its
// name, and may raise to leave what stood there. Raises 5 where there are more rows than a spreadsheet holds,
// and what writing raises.
void WriteWorkbook(const Sheet& sheet, const std::filesystem::path& file,
                   const std::function<void()>& whole = {});

}  // namespace queries
