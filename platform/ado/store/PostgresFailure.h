#pragma once

#include <string_view>

#include "platform/basic/Error.h"

namespace ado {

// A server's failure as an error of this layer, with a text of our own: by its five-letter state. `message`
// and `detail` are the server's words; a function of ours that raised (state QMnnn) gives its text in the one
// and its source in the other. No state at all means that the connection is gone.
basic::Error PostgresFailure(std::string_view state, std::string_view message, std::string_view detail = {});

}  // namespace ado
