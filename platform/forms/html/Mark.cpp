#include "platform/forms/html/Mark.h"

namespace forms::html {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

std::optional<Mark> ReadMark(std::string_view text) {
    Mark mark;
    std::size_t at = 1;
    if (text[at] == '/') {
        mark.Ends = true;
        ++at;
    }
    const std::size_t name = at;
    while (at < text.size() && !IsBlank(text[at]) && text[at] != '/' && text[at] != '>') ++at;
    mark.Name = text.substr(name, at - name);
    mark.Tag = gumbo_tagn_enum(mark.Name.data(), static_cast<unsigned>(mark.Name.size()));
    bool inName = false, valueDue = false, inValue = false;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '>') {
            mark.Text = text.substr(0, at + 1);
            return mark;
        }
        if (IsBlank(c)) {
            inValue = false;
        } else if (valueDue && (c == '"' || c == '\'')) {
            const std::size_t end = text.find_first_of(c == '"' ? "\"<" : "'<", at + 1);
            if (end == std::string_view::npos || text[end] == '<') return std::nullopt;
            at = end;
            inName = valueDue = false;
        } else if (inValue) {
            continue;
        } else if (valueDue) {
            valueDue = inName = false;
            inValue = true;
        } else if (c == '=' && inName) {
            valueDue = true;
        } else if (c == '/') {
            inName = false;
        } else if (!inName || IsBlank(text[at - 1])) {
            inName = true;
            ++mark.Attributes;
        }
    }
    return std::nullopt;
}

}  // namespace forms::html
