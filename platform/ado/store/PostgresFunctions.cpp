#include "platform/ado/store/PostgresFunctions.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "platform/basic/Text.h"

namespace ado {

extern const char FunctionsText[];  // made by the build

namespace {

using Change = std::string (*)(std::string_view);

// A script's letters that change, one behind the other, and what they become.
struct Letters {
    std::string from, to;
};

// The translation walks its list for each character, so each script has a list of its own: Latin, its
// extensions, Greek, Cyrillic, Armenian to phonetic, Latin with marks, Greek with marks, all other.
constexpr std::array<char32_t, 9> Scripts{0x80, 0x100, 0x300, 0x400, 0x530, 0x1E00, 0x1F00, 0x2000, 0x20000};

std::string Encoded(char32_t code) {
    std::u16string text;
    if (code < 0x10000)
        text = {static_cast<char16_t>(code)};
    else
        text = {static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)),
                static_cast<char16_t>(0xDC00 + (code & 0x3FF))};
    return basic::FromUtf16(text);
}

Letters LettersOf(char32_t first, char32_t behind, Change change) {
    Letters letters;
    for (char32_t code = first; code < behind; ++code) {
        if (code >= 0xD800 && code < 0xE000) continue;  // no characters
        const std::string letter = Encoded(code), changed = change(letter);
        if (letter == changed) continue;
        letters.from += letter;
        letters.to += changed;
    }
    return letters;
}

// Most texts hold no letter that changes; one that does holds those of one script.
std::string Steps(Change change) {
    std::string all, steps;
    for (std::size_t i = 0; i + 1 < Scripts.size(); ++i) {
        const Letters letters = LettersOf(Scripts[i], Scripts[i + 1], change);
        all += letters.from;
        steps.append("    IF t ~ '[")
            .append(letters.from)
            .append("]' THEN t := translate(t, '")
            .append(letters.from)
            .append("', '")
            .append(letters.to)
            .append("'); END IF;\n");
    }
    return "    IF t !~ '[" + all + "]' THEN RETURN t; END IF;\n" + steps;
}

}  // namespace

std::string ServerFunctions() {
    std::string text = basic::Replace(FunctionsText, "{{version}}", std::to_string(ServerFunctionsVersion));
    text = basic::Replace(text, "{{fold}}", Steps(basic::FoldCase));
    return basic::Replace(text, "{{upper}}", Steps(basic::UCase));
}

}  // namespace ado
