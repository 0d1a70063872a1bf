#pragma once

#include "platform/ado/store/KeyedNumbers.h"
#include "platform/ado/store/SqlHandle.h"

namespace ado::sqlcipher {

// Teaches an open store qm_line(key, column): a number of `numbers` while it points to some, Null for a key
// without a line. `numbers` must outlive the store.
void InstallNumbers(SqlHandle& store, const KeyedNumbers*& numbers);

// Sets them by one statement, in one walk over the table; see Engine.
void SetNumbers(SqlHandle& store, const KeyedNumbers*& current, const KeyedNumbers& numbers);

}  // namespace ado::sqlcipher
