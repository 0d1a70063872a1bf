#include "platform/forms/html/Recorder.h"

#include <algorithm>

namespace forms::html {
namespace {

constexpr int BoldFrom = 600;
constexpr int ScreenHeight = 768;

QRect ToRect(const litehtml::position& place) {
    return {place.x, place.y, place.width, place.height};
}
QRgb ToColour(const litehtml::web_color& colour) {
    return qRgba(colour.red, colour.green, colour.blue, colour.alpha);
}
// Fonts are counted from 1 towards the library, which takes 0 for none.
Fonts::Index ToFont(litehtml::uint_ptr font) {
    return font - 1;
}

}  // namespace

litehtml::uint_ptr Recorder::create_font(const char*, int size, int weight, litehtml::font_style style,
                                         unsigned decoration, litehtml::font_metrics* metrics) {
    const Fonts::Index font =
        fonts_.Find({.Size = size,
                     .Bold = weight >= BoldFrom,
                     .Italic = style == litehtml::fontStyleItalic,
                     .Underline = (decoration & litehtml::font_decoration_underline) != 0,
                     .StrikeOut = (decoration & litehtml::font_decoration_linethrough) != 0});
    const Fonts::Metrics found = fonts_.MetricsOf(font);
    metrics->height = found.Height;
    metrics->ascent = found.Ascent;
    metrics->descent = found.Descent;
    metrics->x_height = found.XHeight;
    metrics->draw_spaces = decoration != 0;
    return font + 1;
}

int Recorder::text_width(const char* text, litehtml::uint_ptr font) {
    return fonts_.Width(ToFont(font), text);
}

void Recorder::draw_text(litehtml::uint_ptr, const char* text, litehtml::uint_ptr font,
                         litehtml::web_color colour, const litehtml::position& place) {
    const std::string_view drawn(text);
    if (drawn.find_first_not_of(" \t\r\n") == std::string_view::npos)
        return DrawBlank(ToFont(font), colour, place);
    list_->Words.push_back({.Box = ToRect(place),
                            .Begin = static_cast<std::uint32_t>(list_->Text.size()),
                            .Length = static_cast<std::uint32_t>(drawn.size()),
                            .Font = static_cast<std::uint32_t>(ToFont(font)),
                            .Colour = ToColour(colour)});
    list_->Text += drawn;
}

// Of a blank only its underlining is to be seen.
void Recorder::DrawBlank(Fonts::Index font, const litehtml::web_color& colour,
                         const litehtml::position& place) {
    if (!fonts_.Font(font).underline()) return;
    const int line = place.y + fonts_.MetricsOf(font).Ascent + 1;
    list_->Rules.push_back({QRect(place.x, line, place.width, 1), ToColour(colour)});
}

void Recorder::draw_background(litehtml::uint_ptr, const litehtml::background_paint& paint) {
    if (paint.color.alpha > 0) list_->Rules.push_back({ToRect(paint.clip_box), ToColour(paint.color)});
}

void Recorder::get_client_rect(litehtml::position& client) const {
    client = litehtml::position(0, 0, width_, ScreenHeight);
}

void Recorder::get_media_features(litehtml::media_features& media) const {
    media.type = litehtml::media_type_screen;
    media.width = media.device_width = width_;
    media.height = media.device_height = ScreenHeight;
    media.color = 8;
    media.monochrome = 0;
    media.color_index = 256;
    media.resolution = 96;
}

}  // namespace forms::html
