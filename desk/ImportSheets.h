#pragma once

#include <cstddef>
#include <memory>
#include <optional>

#include "host/doors/IncomingFile.h"
#include "queries/Sheet.h"

namespace desk {

// Each fault of a file with its line and column.
std::shared_ptr<const queries::Sheet> FaultsSheet(const host::IncomingFile& file);

// The rows of a file as they were read, each with its line and, where the file has faults, with its own.
std::shared_ptr<const queries::Sheet> RowsSheet(std::shared_ptr<const host::IncomingFile> file);

// The row that stands in a line of the file, or the next one where none begins there; none for the line of
// the columns' names and behind the last.
std::optional<std::size_t> RowOfLine(const host::IncomingFile& file, int line);

// The first fault of a row's line, if any.
std::optional<std::size_t> FaultOfLine(const host::IncomingFile& file, int line);

}  // namespace desk
