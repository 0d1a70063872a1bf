#pragma once

#include <optional>
#include <string_view>

#include <gumbo.h>

namespace forms::html {

// A tag as it stands in a text.
struct Mark {
    GumboTag Tag = GUMBO_TAG_UNKNOWN;
    bool Ends = false;  // "</b>"
    std::string_view Name;
    std::string_view Text;  // from "<" to ">"
    int Attributes = 0;
};

// Reads the tag at the front of `text`, which begins with "<" or "</" and a letter, as a browser's parser
// finds its end. None where that is missing, or where a quoted value holds another "<": there a quote was
// left open.
std::optional<Mark> ReadMark(std::string_view text);

bool IsBlank(char c);  // what parts the attributes of a tag

}  // namespace forms::html
