#pragma once

#include <functional>
#include <string_view>

#include "platform/ado/Recordset.h"

namespace ado {

// Goes through the rows of a select, of which only a part is in memory at a time: `row` is called with each
// as the current record of a set, which it only reads. It may raise to stop, and runs no statement of this
// connection. Raises what the select raises.
void EachRow(Connection& connection, std::string_view select, const std::function<void(Recordset&)>& row);

}  // namespace ado
