#include "platform/forms/html/Fonts.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace forms::html {

// Letters keep their places at any zoom and on paper: no hinting, which would fit them to the screen's dots.
Fonts::Fonts(const QFont& base) : base_(base), defaultSize_(QFontInfo(base).pixelSize()) {
    base_.setHintingPreference(QFont::PreferNoHinting);
    base_.setKerning(false);
}

Fonts::Index Fonts::Find(const FontKey& key) {
    const auto found =
        std::find_if(fonts_.begin(), fonts_.end(), [&](const Known& k) { return k.Key == key; });
    if (found != fonts_.end()) return static_cast<Index>(found - fonts_.begin());
    QFont font = base_;
    font.setPixelSize(std::clamp(key.Size, 1, 400));
    font.setBold(key.Bold);
    font.setItalic(key.Italic);
    font.setUnderline(key.Underline);
    font.setStrikeOut(key.StrikeOut);
    Known& made = fonts_.emplace_back(Known{key, font, {}});
    const QFontMetricsF metrics(font);
    for (std::size_t c = ' '; c < made.Plain.size(); ++c)
        made.Plain[c] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(c)));
    return fonts_.size() - 1;
}

Fonts::Metrics Fonts::MetricsOf(Index index) const {
    const QFontMetricsF metrics(fonts_[index].Font);
    const auto up = [](double size) { return static_cast<int>(std::ceil(size)); };
    const int ascent = up(metrics.ascent()), descent = up(metrics.descent());
    return {ascent + descent, ascent, descent, up(metrics.xHeight())};
}

int Fonts::Width(Index index, std::string_view text) const {
    const Known& font = fonts_[index];
    double width = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= font.Plain.size()) {
            width = QFontMetricsF(font.Font).horizontalAdvance(
                QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
            break;
        }
        width += font.Plain[byte];
    }
    return static_cast<int>(std::ceil(width - 0.01));
}

}  // namespace forms::html
