#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "tests/support/ErrorOf.h"

namespace fuzz {

// Ends the fuzzer where something does not hold that must hold for every input.
inline void Check(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

using test::ErrorOf;

// The input read from its front: first values of fixed size (zero where it is used up), then the rest as
// text.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

    template <class T>
    T Take() {
        T value{};
        const std::size_t size = std::min(sizeof value, rest_.size());
        if (size > 0) std::memcpy(&value, rest_.data(), size);
        rest_.remove_prefix(size);
        return value;
    }
    std::string_view Rest() const { return rest_; }

  private:
    std::string_view rest_;
};

}  // namespace fuzz
