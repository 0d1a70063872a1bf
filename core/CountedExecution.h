#pragma once

#include <cstdint>
#include <string>

namespace qm {

// Executions whose records count, on the shared connection. Beside them stand those that do not count, in
// DBCode.h. A failing statement raises.

// Runs a statement; the number of records that it affected.
std::int64_t Affected(const std::string& sql);

// Runs a posting statement, whose count is a test: error 0 as of RequireRecords where no record is affected.
// On a server the failure may come with the next statement or the commit: both stand in the same trap.
void ExecuteCounted(const std::string& sql);

}  // namespace qm
