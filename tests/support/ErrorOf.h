#pragma once

#include <cstdint>
#include <string>

#include "platform/basic/Error.h"

namespace test {

// The number of the error that `action` raises, 0 for none.
template <class Action>
std::int32_t ErrorOf(Action action) {
    try {
        action();
    } catch (const basic::Error& error) {
        return error.Number;
    }
    return 0;
}

// Its text, "" for none.
template <class Action>
std::string TextOfError(Action action) {
    try {
        action();
    } catch (const basic::Error& error) {
        return error.Description;
    }
    return "";
}

}  // namespace test
