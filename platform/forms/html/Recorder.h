#pragma once

#include <litehtml.h>

#include "platform/forms/html/DisplayList.h"
#include "platform/forms/html/Fonts.h"

namespace forms::html {

// What the layout library asks of its surroundings: the sizes of texts, and paint, which is written down. It
// is given no pictures, no addresses and no styles from elsewhere.
class Recorder final : public litehtml::document_container {
  public:
    Recorder(Fonts& fonts, int width) : fonts_(fonts), width_(width) {}

    // What is drawn from now on goes to this list.
    void SetTarget(DisplayList& list) { list_ = &list; }

    litehtml::uint_ptr create_font(const char* face, int size, int weight, litehtml::font_style style,
                                   unsigned decoration, litehtml::font_metrics* metrics) override;
    void delete_font(litehtml::uint_ptr) override {}
    int text_width(const char* text, litehtml::uint_ptr font) override;
    void draw_text(litehtml::uint_ptr, const char* text, litehtml::uint_ptr font, litehtml::web_color colour,
                   const litehtml::position& place) override;
    int pt_to_px(int points) const override { return points * 96 / 72; }
    int get_default_font_size() const override { return fonts_.DefaultSize(); }
    const char* get_default_font_name() const override { return "report"; }
    void draw_background(litehtml::uint_ptr, const litehtml::background_paint& paint) override;
    void draw_list_marker(litehtml::uint_ptr, const litehtml::list_marker&) override {}
    void draw_borders(litehtml::uint_ptr, const litehtml::borders&, const litehtml::position&,
                      bool) override {}
    void get_client_rect(litehtml::position& client) const override;
    void get_media_features(litehtml::media_features& media) const override;
    void get_language(std::string&, std::string&) const override {}
    void transform_text(std::string&, litehtml::text_transform) override {}
    void set_clip(const litehtml::position&, const litehtml::border_radiuses&, bool, bool) override {}
    void del_clip() override {}

    void load_image(const char*, const char*, bool) override {}
    void get_image_size(const char*, const char*, litehtml::size& size) override { size = {}; }
    void import_css(std::string& text, const std::string&, std::string&) override { text.clear(); }
    void link(const std::shared_ptr<litehtml::document>&, const litehtml::element::ptr&) override {}
    void set_base_url(const char*) override {}
    void set_caption(const char*) override {}
    void set_cursor(const char*) override {}
    void on_anchor_click(const char*, const litehtml::element::ptr&) override {}
    std::shared_ptr<litehtml::element> create_element(const char*, const litehtml::string_map&,
                                                      const std::shared_ptr<litehtml::document>&) override {
        return nullptr;
    }

  private:
    void DrawBlank(Fonts::Index font, const litehtml::web_color& colour, const litehtml::position& place);

    Fonts& fonts_;
    int width_;
    DisplayList* list_ = nullptr;
};

}  // namespace forms::html
