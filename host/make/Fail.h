#pragma once

#include <string>

#include "platform/basic/Error.h"

namespace host {

// A command cannot go on: raises basic::Error with source "host". The text is one line, which main shows to
// the user.
[[noreturn]] inline void Fail(const std::string& text) {
    throw basic::Error(basic::error::InvalidCall, text, "host");
}

}  // namespace host
