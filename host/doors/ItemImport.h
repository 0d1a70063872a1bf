#pragma once

#include <vector>

#include "host/doors/CsvTable.h"
#include "host/doors/Import.h"

namespace host {

// A file of items of the current year, by the rules of the item screen: the columns bear its fields' names.
// Numbers stand in all rows or in none; then each item takes the next one. A number or a name that stands in
// the year already is refused, where the screen would change the item or make a second one.
const std::vector<Head>& ItemHeads();
void CheckItems(CsvTable& table, qm::clQm&, ImportFile& file, const CheckProgress& progress);

}  // namespace host
