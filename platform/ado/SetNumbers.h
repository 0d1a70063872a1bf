#pragma once

#include "platform/ado/Connection.h"
#include "platform/ado/store/KeyedNumbers.h"

namespace ado {

// Sets numbers in the rows of a table, many at once and as one statement: all of it is done or nothing. Names
// are found without regard to case. Raises what a statement raises.
void SetNumbers(Connection& connection, const KeyedNumbers& numbers);

}  // namespace ado
