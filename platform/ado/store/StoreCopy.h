#pragma once

#include "platform/ado/store/Engine.h"
#include "platform/ado/store/NewStore.h"

namespace ado {

// Copies all tables of a store into a new one, with their types, defaults, indexes and counters, the rows in
// their order, and compares each row with what then stands there, value by value. The caller holds one moment
// of the store in view and finishes the new one. Raises error::Damaged for a row that differs.
void CopyStore(Engine& from, NewStore& to);

}  // namespace ado
