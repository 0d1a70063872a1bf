#include "platform/forms/html/Cleaner.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdlib>
#include <utility>

namespace forms::html {
namespace {

constexpr int MostPixels = 10000, ColumnGap = 10;

// Tags that the style sheet knows. Others count for nothing, but what is in them is shown.
constexpr GumboTag Known[] = {
    GUMBO_TAG_P,       GUMBO_TAG_DIV,   GUMBO_TAG_CENTER, GUMBO_TAG_BLOCKQUOTE, GUMBO_TAG_PRE,
    GUMBO_TAG_H1,      GUMBO_TAG_H2,    GUMBO_TAG_H3,     GUMBO_TAG_H4,         GUMBO_TAG_H5,
    GUMBO_TAG_H6,      GUMBO_TAG_UL,    GUMBO_TAG_OL,     GUMBO_TAG_LI,         GUMBO_TAG_B,
    GUMBO_TAG_STRONG,  GUMBO_TAG_I,     GUMBO_TAG_EM,     GUMBO_TAG_U,          GUMBO_TAG_S,
    GUMBO_TAG_BIG,     GUMBO_TAG_SMALL, GUMBO_TAG_SUB,    GUMBO_TAG_SUP,        GUMBO_TAG_TABLE,
    GUMBO_TAG_CAPTION, GUMBO_TAG_TBODY, GUMBO_TAG_THEAD,  GUMBO_TAG_TFOOT,      GUMBO_TAG_TR,
    GUMBO_TAG_TD,      GUMBO_TAG_TH,    GUMBO_TAG_HR,     GUMBO_TAG_BR};

// What is in these is not for reading.
constexpr GumboTag Dropped[] = {GUMBO_TAG_SCRIPT,   GUMBO_TAG_STYLE,  GUMBO_TAG_TITLE,   GUMBO_TAG_HEAD,
                                GUMBO_TAG_IFRAME,   GUMBO_TAG_OBJECT, GUMBO_TAG_APPLET,  GUMBO_TAG_NOFRAMES,
                                GUMBO_TAG_TEMPLATE, GUMBO_TAG_SELECT, GUMBO_TAG_NOEMBED, GUMBO_TAG_SVG};

template <std::size_t Count>
bool In(const GumboTag (&tags)[Count], GumboTag tag) {
    return std::find(std::begin(tags), std::end(tags), tag) != std::end(tags);
}

std::string InSmallLetters(const char* text) {
    std::string small(text);
    std::transform(small.begin(), small.end(), small.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return small;
}

// The number at an attribute's begin, as browsers read it; -1 if there is none.
double NumberAt(const char*& text) {
    while (std::isspace(static_cast<unsigned char>(*text))) ++text;
    if (!std::isdigit(static_cast<unsigned char>(*text))) return -1;
    double number = 0;
    text =
        std::from_chars(text, text + std::char_traits<char>::length(text), number, std::chars_format::fixed)
            .ptr;
    return std::min(number, double{MostPixels});
}

// "width:15%;" for width='15%', "width:31px;" for width=31, "" for anything else.
std::string Length(const GumboNode& node, const char* attribute) {
    const char* value = Attribute(node, attribute);
    const double number = value ? NumberAt(value) : -1;
    if (number < 0) return {};
    return std::string(attribute) + ':' + std::to_string(static_cast<int>(number)) +
           (*value == '%' ? "%;" : "px;");
}

std::string Px(int pixels) {
    return std::to_string(pixels) + "px";
}

int Pixels(const GumboNode& node, const char* attribute, int otherwise) {
    const char* value = Attribute(node, attribute);
    const double number = value ? NumberAt(value) : -1;
    return number < 0 ? otherwise : static_cast<int>(number);
}

int CellPadding(const GumboNode& table) {
    return Pixels(table, "cellpadding", 1);
}

// Columns stand apart, so that a heading or an amount does not run into its neighbour.
std::string Padding(const GumboNode& cell, int pixels) {
    const int left = cell.index_within_parent > 0 ? pixels + ColumnGap : pixels;
    return "padding:" + Px(pixels) + ' ' + Px(pixels) + ' ' + Px(pixels) + ' ' + Px(left) + ';';
}

// One of the words, in any spelling, or "".
std::string Word(const GumboNode& node, const char* attribute, std::initializer_list<const char*> words) {
    const char* value = Attribute(node, attribute);
    const std::string small = value ? InSmallLetters(value) : "";
    return std::find(words.begin(), words.end(), small) == words.end() ? "" : small;
}

std::string Alignment(const GumboNode& node) {
    const std::string across = Word(node, "align", {"left", "right", "center", "justify"});
    const std::string down = Word(node, "valign", {"top", "middle", "bottom", "baseline"});
    return (across.empty() ? "" : "text-align:" + across + ';') +
           (down.empty() ? "" : "vertical-align:" + down + ';');
}

// A "#rrggbb" or a colour's name; anything else could end the style.
std::string Colour(const GumboNode& node, const char* attribute, const char* style) {
    const char* value = Attribute(node, attribute);
    if (!value) return {};
    const std::string_view colour(value);
    const bool plain = std::all_of(colour.begin(), colour.end(),
                                   [](unsigned char c) { return c == '#' || std::isalnum(c); });
    return plain && !colour.empty() ? std::string(style) + ':' + InSmallLetters(value) + ';' : "";
}

// Sizes 1 to 7, 3 the usual one; "+1" and "-1" count from there.
std::string FontSize(const GumboNode& font) {
    static constexpr const char* percent[] = {"63", "82", "100", "115", "150", "200", "300"};
    const char* value = Attribute(font, "size");
    if (!value) return {};
    const int number = std::atoi(value);
    const bool relative = *value == '+' || *value == '-';
    if (number == 0 && !relative) return {};
    const int size = std::clamp(relative ? 3 + number : number, 1, 7);
    return std::string("font-size:") + percent[size - 1] + "%;";
}

}  // namespace

int SpanOf(const GumboNode& cell, const char* attribute) {
    return std::clamp(Pixels(cell, attribute, 1), 1, Bounds::Span);
}

std::string Cleaner::Node(const GumboNode& node, Widths widths) {
    Cleaner cleaner(widths);
    for (const GumboNode* around = node.parent; around; around = around->parent)
        if (Is(*around, GUMBO_TAG_TABLE)) {
            cleaner.cellPadding_ = CellPadding(*around);
            break;
        }
    cleaner.Add(node);
    return std::move(cleaner.out_);
}

std::string Cleaner::TableStyle(const GumboNode& table, Widths widths) {
    std::string style = widths == Widths::Own ? Length(table, "width") : "";
    const std::string align = Word(table, "align", {"center", "right"});
    if (!align.empty()) style += "margin-left:auto;";
    if (align == "center") style += "margin-right:auto;";
    const int spacing = Pixels(table, "cellspacing", -1);
    if (spacing >= 0) style += "border-spacing:" + std::to_string(spacing) + "px;";
    return style + Colour(table, "bgcolor", "background-color");
}

void Cleaner::AddChildren(const GumboNode& node) {
    for (const GumboNode* child : ChildrenOf(node)) Add(*child);
}

void Cleaner::Add(const GumboNode& node) {
    if (IsText(node)) {
        out_ += Escaped(node.v.text.text);
        return;
    }
    const GumboTag tag = TagOf(node);
    if (In(Dropped, tag) || node.type != GUMBO_NODE_ELEMENT) return;
    const int padding = cellPadding_;
    if (tag == GUMBO_TAG_TABLE) cellPadding_ = CellPadding(node);
    const char* const name = In(Known, tag)          ? gumbo_normalized_tagname(tag)
                             : tag == GUMBO_TAG_FONT ? "span"
                                                     : nullptr;
    if (name) Open(node, name);
    AddChildren(node);
    if (name && tag != GUMBO_TAG_BR && tag != GUMBO_TAG_HR) out_ += std::string("</") + name + '>';
    cellPadding_ = padding;
}

void Cleaner::Open(const GumboNode& node, const char* name) {
    const GumboTag tag = TagOf(node);
    std::string style, spans;
    if (tag == GUMBO_TAG_TABLE) {
        style = TableStyle(node, Widths::Own);
    } else if (tag == GUMBO_TAG_TD || tag == GUMBO_TAG_TH) {
        if (widths_ == Widths::Own) style += Length(node, "width");
        style += Length(node, "height") + Padding(node, cellPadding_);
        if (SpanOf(node) > 1) spans = " colspan=" + std::to_string(SpanOf(node));
        if (SpanOf(node, "rowspan") > 1) spans += " rowspan=" + std::to_string(SpanOf(node, "rowspan"));
        if (Attribute(node, "nowrap")) style += "white-space:nowrap;";
    } else if (tag == GUMBO_TAG_FONT) {
        style = FontSize(node) + Colour(node, "color", "color");
    } else if (tag == GUMBO_TAG_HR || tag == GUMBO_TAG_TR) {
        style = Length(node, tag == GUMBO_TAG_HR ? "width" : "height");
    }
    if (tag != GUMBO_TAG_TABLE) style += Alignment(node) + Colour(node, "bgcolor", "background-color");
    out_ += '<';
    out_ += name;
    out_ += spans;
    if (!style.empty()) out_ += " style=\"" + style + '"';
    out_ += '>';
}

}  // namespace forms::html
