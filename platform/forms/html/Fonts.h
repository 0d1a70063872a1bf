#pragma once

#include <QFont>
#include <array>
#include <deque>
#include <string_view>

namespace forms::html {

// How a text is drawn. Sizes are pixels at 96 dots per inch.
struct FontKey {
    int Size = 0;
    bool Bold = false, Italic = false, Underline = false, StrikeOut = false;
    friend bool operator==(const FontKey&, const FontKey&) = default;
};

// The fonts that documents use, each made once, and the widths of texts in them: letters are measured once,
// so that a report of a hundred thousand cells costs no more than adding them up.
class Fonts {
  public:
    using Index = std::size_t;
    struct Metrics {
        int Height, Ascent, Descent, XHeight;
    };

    explicit Fonts(const QFont& base);

    int DefaultSize() const { return defaultSize_; }
    Index Find(const FontKey& key);
    const QFont& Font(Index index) const { return fonts_[index].Font; }
    Metrics MetricsOf(Index index) const;
    int Width(Index index, std::string_view text) const;  // pixels, rounded up

  private:
    struct Known {
        FontKey Key;
        QFont Font;
        std::array<double, 128> Plain;
    };

    QFont base_;
    int defaultSize_;
    std::deque<Known> fonts_;
};

}  // namespace forms::html
