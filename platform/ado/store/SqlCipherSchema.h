#pragma once

#include <string>

#include "platform/ado/store/Schema.h"

namespace ado {

// The statement that makes a table in the embedded store, checks included, without its indexes.
std::string SqlCipherDefinition(const SchemaTable& table);

}  // namespace ado
