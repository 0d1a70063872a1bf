#include "platform/forms/controls/TextMeasure.h"

#include <algorithm>

namespace forms {

TextMeasure::TextMeasure(const QFont& font) : metrics_(font) {
    for (std::size_t c = 32; c < plain_.size(); ++c)
        plain_[c] = metrics_.horizontalAdvance(QChar(static_cast<char16_t>(c)));
}

int TextMeasure::Width(std::string_view text) const {
    int widest = 0;
    for (;;) {
        const std::size_t end = text.find('\n');
        widest = std::max(widest, LineWidth(text.substr(0, end)));
        if (end == std::string_view::npos) return widest;
        text.remove_prefix(end + 1);
    }
}

int TextMeasure::LineWidth(std::string_view line) const {
    int width = 0;
    for (const char c : line) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= plain_.size())
            return metrics_.horizontalAdvance(
                QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())));
        width += plain_[byte];
    }
    return width;
}

}  // namespace forms
