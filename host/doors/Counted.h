#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace host {

// "1 fault", "2 faults".
inline std::string Counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

// Rising numbers, runs of them drawn together: "63 to 65, 70".
inline std::string Ranges(const std::vector<int>& numbers) {
    std::string text;
    for (std::size_t from = 0, next = 0; from < numbers.size(); from = next) {
        for (next = from + 1; next < numbers.size() && numbers[next] == numbers[next - 1] + 1;) ++next;
        text += (text.empty() ? "" : ", ") + std::to_string(numbers[from]);
        if (next - from > 1) text += " to " + std::to_string(numbers[next - 1]);
    }
    return text;
}

}  // namespace host
