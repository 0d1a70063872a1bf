#pragma once

#include <string>

#include "platform/ado/store/Engine.h"

namespace ado {

// Makes the table `target` with the columns, types, defaults and indexes of `source`, and its rows in their
// order. The definition is the source's own: a plain "create as select" would lose types and defaults. The
// caller sees to it that all of it happens or nothing.
void SelectInto(Engine& engine, const std::string& source, const std::string& target);

// The name for the copy of an index: the source's name within it becomes the target's. For tests, too.
std::string IndexNameFor(const std::string& index, const std::string& source, const std::string& target);

}  // namespace ado
