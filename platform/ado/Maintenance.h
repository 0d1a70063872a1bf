#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/ado/Connection.h"

// What an administrator may do with the embedded store beside running statements.
namespace ado {

// Reads every page and index of the store: a line for each fault, none if all is well.
std::vector<std::string> CheckIntegrity(Connection& connection);

// Copies the store as it stands at one moment into a new file under the same password, while others may go on
// writing. Raises BadArgument where the file exists, and what reading or writing raises; a copy that failed
// is removed.
void BackUp(Connection& connection, const std::string& file);

}  // namespace ado
