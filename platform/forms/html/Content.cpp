#include "platform/forms/html/Content.h"

#include <algorithm>
#include <cctype>

#include "platform/forms/html/Tree.h"

namespace forms::html {
namespace {

template <std::size_t Count>
bool OneOf(GumboTag tag, const GumboTag (&tags)[Count]) {
    return std::find(std::begin(tags), std::end(tags), tag) != std::end(tags);
}

constexpr GumboTag Unseen[] = {GUMBO_TAG_SCRIPT, GUMBO_TAG_STYLE,    GUMBO_TAG_HEAD,    GUMBO_TAG_TITLE,
                               GUMBO_TAG_IFRAME, GUMBO_TAG_TEMPLATE, GUMBO_TAG_NOFRAMES};
constexpr GumboTag Lines[] = {
    GUMBO_TAG_P,  GUMBO_TAG_DIV, GUMBO_TAG_CENTER, GUMBO_TAG_TABLE, GUMBO_TAG_TR,   GUMBO_TAG_HR,
    GUMBO_TAG_H1, GUMBO_TAG_H2,  GUMBO_TAG_H3,     GUMBO_TAG_H4,    GUMBO_TAG_H5,   GUMBO_TAG_H6,
    GUMBO_TAG_UL, GUMBO_TAG_OL,  GUMBO_TAG_LI,     GUMBO_TAG_PRE,   GUMBO_TAG_FORM, GUMBO_TAG_BLOCKQUOTE,
    GUMBO_TAG_DL, GUMBO_TAG_DT,  GUMBO_TAG_DD};
constexpr GumboTag Empty[] = {GUMBO_TAG_BR,   GUMBO_TAG_HR,   GUMBO_TAG_IMG, GUMBO_TAG_INPUT, GUMBO_TAG_META,
                              GUMBO_TAG_LINK, GUMBO_TAG_BASE, GUMBO_TAG_COL, GUMBO_TAG_AREA,  GUMBO_TAG_WBR};
constexpr GumboTag Raw[] = {GUMBO_TAG_SCRIPT,  GUMBO_TAG_STYLE,    GUMBO_TAG_XMP,      GUMBO_TAG_IFRAME,
                            GUMBO_TAG_NOEMBED, GUMBO_TAG_NOFRAMES, GUMBO_TAG_PLAINTEXT};

bool IsCell(const GumboNode& node) {
    return Is(node, GUMBO_TAG_TD) || Is(node, GUMBO_TAG_TH);
}

bool FollowsCell(const GumboNode& cell) {
    const auto before = ChildrenOf(*cell.parent).first(cell.index_within_parent);
    return std::any_of(before.begin(), before.end(), [](const GumboNode* node) { return IsCell(*node); });
}

// Gathers lines of text; runs of blanks are one, none stands at a line's or a cell's begin.
class TextWriter {
  public:
    void Add(const GumboNode& node) {
        if (IsText(node)) return AddText(node.v.text.text);
        const GumboTag tag = TagOf(node);
        if (OneOf(tag, Unseen)) return;
        const bool line = OneOf(tag, Lines), cell = IsCell(node);
        if (line) BreakLine();
        if (cell && FollowsCell(node)) text_ += '\t';
        blankDue_ = blankDue_ && !cell;
        for (const GumboNode* child : ChildrenOf(node)) Add(*child);
        if (tag == GUMBO_TAG_BR) text_ += "\r\n";
        if (line) BreakLine();
    }
    std::string Take() {
        BreakLine();
        if (text_.ends_with("\r\n")) text_.resize(text_.size() - 2);
        return std::move(text_);
    }

  private:
    bool AtBegin() const { return text_.empty() || text_.back() == '\n' || text_.back() == '\t'; }
    void AddText(std::string_view text) {
        for (const char c : text) {
            if (std::isspace(static_cast<unsigned char>(c))) {
                blankDue_ = !AtBegin();
            } else {
                if (blankDue_) text_ += ' ';
                blankDue_ = false;
                text_ += c;
            }
        }
    }
    // A line of nothing but tabs is a row of empty cells: it stays.
    void BreakLine() {
        blankDue_ = false;
        if (!text_.empty() && text_.back() != '\n') text_ += "\r\n";
    }

    std::string text_;
    bool blankDue_ = false;
};

std::string NameOf(const GumboElement& element) {
    if (element.tag != GUMBO_TAG_UNKNOWN) return gumbo_normalized_tagname(element.tag);
    GumboStringPiece name = element.original_tag;
    gumbo_tag_from_original_text(&name);
    std::string small(name.data, name.length);
    std::transform(small.begin(), small.end(), small.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return small;
}

std::string OpeningTag(const GumboElement& element) {
    std::string tag = '<' + NameOf(element);
    for (unsigned i = 0; i < element.attributes.length; ++i) {
        const auto& attribute = *static_cast<const GumboAttribute*>(element.attributes.data[i]);
        tag += std::string(" ") + attribute.name + "=\"" + Escaped(attribute.value, true) + '"';
    }
    return tag + '>';
}

void WriteChildren(const GumboNode& of, std::string& out) {
    for (const GumboNode* node : ChildrenOf(of)) {
        if (node->type == GUMBO_NODE_COMMENT) {
            out += std::string("<!--") + node->v.text.text + "-->";
        } else if (IsText(*node)) {
            out += OneOf(TagOf(of), Raw) ? node->v.text.text : Escaped(node->v.text.text);
        } else {
            out += OpeningTag(node->v.element);
            if (OneOf(TagOf(*node), Empty)) continue;
            WriteChildren(*node, out);
            out += "</" + NameOf(node->v.element) + '>';
        }
    }
}

}  // namespace

std::string InnerText(std::string_view document) {
    const Tree tree(document);
    TextWriter text;
    if (tree.Body()) text.Add(*tree.Body());
    return text.Take();
}

std::string InnerHtml(std::string_view document) {
    const Tree tree(document);
    std::string html;
    if (tree.Body()) WriteChildren(*tree.Body(), html);
    return html;
}

std::string WithBody(std::string_view document, std::string_view html) {
    const Tree tree(document);
    std::string head;
    if (tree.Head()) WriteChildren(*tree.Head(), head);
    const std::string body = tree.Body() ? OpeningTag(tree.Body()->v.element) : "<body>";
    return "<html><head>" + head + "</head>" + body + std::string(html) + "</body></html>";
}

}  // namespace forms::html
