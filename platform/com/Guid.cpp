#include "platform/com/Guid.h"

#include <charconv>
#include <cstdio>

namespace com {
namespace {

constexpr std::string_view Pattern = "{hhhhhhhh-hhhh-hhhh-hhhh-hhhhhhhhhhhh}";  // h: a hexadecimal digit

bool IsHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool Fits(std::string_view text) {
    if (text.size() != Pattern.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (Pattern[i] == 'h' ? !IsHexDigit(text[i]) : text[i] != Pattern[i]) return false;
    return true;
}

template <class Number>
Number Hex(std::string_view text, std::size_t from) {
    Number number = 0;
    std::from_chars(text.data() + from, text.data() + from + sizeof(Number) * 2, number, 16);
    return number;
}

}  // namespace

std::string GuidText(const GUID& guid) {
    char text[Pattern.size() + 1];
    const auto& d = guid.Data4;
    std::snprintf(text, sizeof text, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", guid.Data1,
                  guid.Data2, guid.Data3, d[0], d[1], d[2], d[3], d[4], d[5], d[6], d[7]);
    return text;
}

std::optional<GUID> ReadGuid(std::string_view text) {
    if (!Fits(text)) return std::nullopt;
    GUID guid{Hex<std::uint32_t>(text, 1), Hex<std::uint16_t>(text, 10), Hex<std::uint16_t>(text, 15), {}};
    for (std::size_t i = 0; i < sizeof guid.Data4; ++i)
        guid.Data4[i] = Hex<std::uint8_t>(text, (i < 2 ? 20 : 21) + i * 2);
    return guid;
}

}  // namespace com
