#pragma once

#include <string_view>
#include <vector>

#include "host/make/CsvFile.h"

namespace host {

// The text of a file of data/, such as "groups.csv" or "sample/items.csv", which the program bears inside
// itself so that it needs no data folder where it is installed. An unknown name is a fault of the build and
// ends the program.
std::string_view Embedded(std::string_view name);

// The rows of such a file of comma-separated values, below its header.
std::vector<CsvRow> EmbeddedRows(std::string_view name);

}  // namespace host
