#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/ado/Connection.h"
#include "platform/basic/Value.h"

namespace ado {

using FieldValue = std::pair<std::string, basic::Value>;

// Adds a row as AddNew and Update of a record set do, where nobody looks at it through one: values are
// converted to their fields, other fields take their defaults. Names are found without regard to case. It
// goes ahead: see Connection::ExecuteAhead.
void AddRow(Connection& connection, const std::string& table, const std::vector<FieldValue>& fields);

}  // namespace ado
