#include "host/doors/JournalText.h"

#include <charconv>
#include <cstddef>
#include <string_view>

#include "platform/basic/Text.h"

namespace host::journal {
namespace {

constexpr std::string_view Hex = "0123456789abcdef";

bool IsControl(char16_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
}

// Every character of `astray` and every control character becomes `instead`; blanks are drawn together and
// taken off both ends. Bytes that are no UTF-8 read U+FFFD.
std::string Plain(const std::string& text, std::u16string_view astray, char16_t instead) {
    std::u16string plain;
    for (char16_t c : basic::ToUtf16(text)) {
        if (astray.find(c) != astray.npos) c = instead;
        if (IsControl(c) || c == 0xA0 || c == 0x3000) c = u' ';
        if (c != u' ' || (!plain.empty() && plain.back() != u' ')) plain += c;
    }
    return basic::Trim(basic::FromUtf16(plain));
}

}  // namespace

std::string QuotedText(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : basic::FromUtf16(basic::ToUtf16(text))) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F || std::string_view("\"\\:[];").find(c) != std::string_view::npos)
            quoted += {'\\', 'x', Hex[byte / 16], Hex[byte % 16]};
        else
            quoted += c;
    }
    return quoted + "\"";
}

std::string UnquotedText(const std::string& quoted) {
    if (quoted.size() < 2 || !quoted.starts_with('"') || !quoted.ends_with('"')) return quoted;
    std::string text;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
        int byte = 0;
        const char* const hex = quoted.data() + i + 2;
        if (quoted.compare(i, 2, "\\x") == 0 && i + 4 < quoted.size() &&
            std::from_chars(hex, hex + 2, byte, 16).ptr == hex + 2) {
            text += static_cast<char>(byte);
            i += 3;
        } else {
            text += quoted[i];
        }
    }
    return text;
}

std::string AccountPart(const std::string& name) {
    const std::string part = Plain(name, u":;", u'.');
    return part.empty() ? "-" : part;
}

std::string Description(const std::string& narration) {
    return Plain(narration, u";", u',');
}

}  // namespace host::journal
