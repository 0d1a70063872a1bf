#pragma once

#include <cstddef>
#include <string>

namespace host {

// "1 fault", "2 faults".
inline std::string Counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace host
