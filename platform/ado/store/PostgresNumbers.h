#pragma once

#include "platform/ado/store/Engine.h"

namespace ado::postgres {

// Sets them by one statement that brings all of them along; see Engine.
void SetNumbers(Engine& server, const KeyedNumbers& numbers);

}  // namespace ado::postgres
