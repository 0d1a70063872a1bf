#include "platform/forms/controls/Text.h"

namespace forms {

std::string WithLineEnds(std::string_view text) {
    std::string lines;
    lines.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!pair) lines += text[i] == '\r' ? '\n' : text[i];
    }
    return lines;
}

QString WithoutMnemonic(QString caption) {
    for (qsizetype i = 0; i < caption.size(); ++i)
        if (caption[i] == u'&') caption.remove(i, 1);  // the character after it stays, be it a second "&"
    return caption;
}

}  // namespace forms
