#pragma once

#include <string>

namespace ado {

// The name for the copy of an index: the source table's name within it becomes the target's.
std::string IndexNameFor(const std::string& index, const std::string& source, const std::string& target);

}  // namespace ado
