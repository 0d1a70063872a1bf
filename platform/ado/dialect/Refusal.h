#pragma once

#include <cstdint>
#include <string>

#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"

namespace ado {

// Ends the reading of a statement with a number of ado::error and a text that names the place.
[[noreturn]] inline void Refuse(std::int32_t number, const std::string& text) {
    throw basic::Error(number, text, "ado.Statement");
}

}  // namespace ado
