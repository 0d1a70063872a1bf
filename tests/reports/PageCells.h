#pragma once

#include <algorithm>
#include <regex>
#include <string>
#include <vector>

#include "platform/basic/Text.h"

namespace test {

// The rows of a page from the one behind `from` on, cells joined by "|"; those without text or with one cell
// alone are left out.
inline std::vector<std::string> CellsOf(const std::string& page, const std::string& from = "") {
    static const std::regex cell("<td[^>]*>"), tag("<[^>]*>");
    std::vector<std::string> lines;
    std::size_t at = page.find("<tr");
    while (at != std::string::npos) {
        const std::size_t next = page.find("<tr", at + 1);
        std::string text = std::regex_replace(page.substr(at, next - at), cell, "|");
        text = basic::Replace(std::regex_replace(text, tag, ""), "\r\n", "");
        at = next;
        if (text.find_first_not_of("| ") == std::string::npos || text.find('|', 1) == std::string::npos)
            continue;
        lines.push_back(text);
    }
    const auto head = std::find_if(lines.begin(), lines.end(),
                                   [&](const std::string& line) { return line.find(from) != line.npos; });
    return from.empty() || head == lines.end() ? lines : std::vector<std::string>(head + 1, lines.end());
}

}  // namespace test
