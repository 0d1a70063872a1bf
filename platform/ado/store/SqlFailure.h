#pragma once

#include <optional>

#include "platform/basic/Error.h"

struct sqlite3;

namespace ado {

// The library's last failure as an error of this layer, with a text of our own. A function of ours that
// raised while the statement ran left its error in `raised`; it is taken from there and goes out unchanged.
basic::Error FailureOf(sqlite3* store, std::optional<basic::Error>& raised);

}  // namespace ado
