#pragma once

#include <QFontMetrics>
#include <array>
#include <string_view>

namespace forms {

// Widths of many texts in one font, fast enough to size a column of 20,000 cells: plain letters are looked
// up, only others are laid out.
class TextMeasure {
  public:
    explicit TextMeasure(const QFont& font);
    int Width(std::string_view text) const;  // pixels, of the longest line
    int LineHeight() const { return metrics_.height(); }

  private:
    int LineWidth(std::string_view line) const;

    QFontMetrics metrics_;
    std::array<int, 128> plain_{};
};

}  // namespace forms
