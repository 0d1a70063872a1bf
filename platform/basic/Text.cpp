#include "platform/basic/Text.h"

#include <algorithm>

#include <utf8proc.h>

namespace basic {
namespace {

using Code = utf8proc_int32_t;

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// Reads the character at `at` and moves past it; an invalid byte is one character by itself.
Code Next(std::string_view text, std::size_t& at) {
    if (IsAscii(text[at])) return static_cast<unsigned char>(text[at++]);
    Code code = 0;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data() + at),
                                         static_cast<utf8proc_ssize_t>(text.size() - at), &code);
    if (length <= 0) {
        // Outside the range of characters, so that no valid one equals it.
        return 0x110000 + static_cast<unsigned char>(text[at++]);
    }
    at += static_cast<std::size_t>(length);
    return code;
}

Code NextFoldedBeyondAscii(std::string_view text, std::size_t& at) {
    const Code code = Next(text, at);
    // The dotted capital and the dotless small I of Turkish are no case of the plain letter.
    if (code >= 0x110000 || code == 0x130 || code == 0x131) return code;
    return utf8proc_tolower(utf8proc_toupper(code));
}

inline Code NextFolded(std::string_view text, std::size_t& at) {
    if (IsAscii(text[at])) return static_cast<unsigned char>(LowerAscii(text[at++]));
    return NextFoldedBeyondAscii(text, at);
}

// The byte place behind `count` characters from `from`.
std::size_t Advance(std::string_view text, std::size_t from, std::size_t count) {
    while (count-- > 0 && from < text.size()) Next(text, from);
    return from;
}

// The next place from `at` on where a text may go on with a character of a pattern: plain letters that differ
// from a plain one are passed over.
std::size_t PassOver(std::string_view text, std::size_t at, char wanted) {
    if (!IsAscii(wanted) || wanted == '_') return at;
    while (at < text.size() && IsAscii(text[at]) && LowerAscii(text[at]) != LowerAscii(wanted)) ++at;
    return at;
}

void Append(std::string& text, Code code) {
    if (code >= 0x110000) {
        text += static_cast<char>(code - 0x110000);
        return;
    }
    utf8proc_uint8_t bytes[4];
    const auto length = utf8proc_encode_char(code, bytes);
    text.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
}

template <class Change>
std::string Changed(std::string_view text, Change change) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Code code = Next(text, at);
        Append(out, code < 0x110000 ? change(code) : code);
    }
    return out;
}

}  // namespace

std::size_t Len(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count) Next(text, at);
    return count;
}

std::string Left(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, Advance(text, 0, count)));
}

std::string Right(std::string_view text, std::size_t count) {
    const std::size_t length = Len(text);
    return std::string(text.substr(Advance(text, 0, length > count ? length - count : 0)));
}

std::string Mid(std::string_view text, std::size_t from) {
    return std::string(text.substr(Advance(text, 0, from > 0 ? from - 1 : 0)));
}

std::string Mid(std::string_view text, std::size_t from, std::size_t count) {
    const std::size_t begin = Advance(text, 0, from > 0 ? from - 1 : 0);
    return std::string(text.substr(begin, Advance(text, begin, count) - begin));
}

std::string Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string UCase(std::string_view text) {
    // The sharp s has no capital in ordinary writing.
    return Changed(text, [](Code code) { return code == 0xDF ? code : utf8proc_toupper(code); });
}

std::string FoldCase(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) Append(out, NextFolded(text, at));
    return out;
}

std::string Replace(std::string_view text, std::string_view what, std::string_view with) {
    std::string out;
    for (std::size_t at = 0;;) {
        const std::size_t found = what.empty() ? std::string_view::npos : text.find(what, at);
        out += text.substr(at, found - at);
        if (found == std::string_view::npos) return out;
        out += with;
        at = found + what.size();
    }
}

int CompareText(std::string_view a, std::string_view b) {
    if (a == b) return 0;  // most texts that a sort compares are
    std::size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        const Code left = NextFolded(a, i), right = NextFolded(b, j);
        if (left != right) return left < right ? -1 : 1;
    }
    return static_cast<int>(i < a.size()) - static_cast<int>(j < b.size());
}

bool EqualText(std::string_view a, std::string_view b) {
    return a == b || CompareText(a, b) == 0;
}

bool LikeText(std::string_view text, std::string_view pattern) {
    // Greedy with one way back: to the last %, one character further.
    std::size_t at = 0, in = 0, backAt = 0, backIn = std::string_view::npos;
    while (at < text.size()) {
        if (in < pattern.size() && pattern[in] == '%') {
            backIn = ++in;
            backAt = at;
            if (in == pattern.size()) return true;
            continue;
        }
        std::size_t nextAt = at, nextIn = in;
        const Code code = NextFolded(text, nextAt);
        if (in < pattern.size() &&
            (pattern[in] == '_' ? (++nextIn, true) : NextFolded(pattern, nextIn) == code)) {
            at = nextAt;
            in = nextIn;
        } else if (backIn != std::string_view::npos) {
            Next(text, backAt);
            backAt = PassOver(text, backAt, pattern[backIn]);
            at = backAt;
            in = backIn;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('%', in) == std::string_view::npos;
}

bool IsUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();)
        if (Next(text, at) >= 0x110000) return false;
    return true;
}

std::u16string ToUtf16(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        Code code = Next(text, at);
        if (code >= 0x110000) code = 0xFFFD;
        if (code < 0x10000) {
            out += static_cast<char16_t>(code);
        } else {
            out += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
            out += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
        }
    }
    return out;
}

std::string FromUtf16(std::u16string_view text) {
    std::string out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        Code code = text[at];
        const bool paired = code >= 0xD800 && code < 0xDC00 && at + 1 < text.size() &&
                            text[at + 1] >= 0xDC00 && text[at + 1] < 0xE000;
        if (paired)
            code = 0x10000 + ((code - 0xD800) << 10) + (text[++at] - 0xDC00);
        else if (code >= 0xD800 && code < 0xE000)
            code = 0xFFFD;
        Append(out, code);
    }
    return out;
}

}  // namespace basic
