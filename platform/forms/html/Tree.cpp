#include "platform/forms/html/Tree.h"

namespace forms::html {

Tree::Tree(std::string_view text, const Bounds& bounds)
    : text_(Bounded(text, bounds)),
      parsed_(gumbo_parse_with_options(&kGumboDefaultOptions, text_.data(), text_.size())) {}
Tree::~Tree() {
    gumbo_destroy_output(&kGumboDefaultOptions, parsed_);
}

const GumboNode* Tree::Part(GumboTag tag) const {
    for (const GumboNode* part : ChildrenOf(*parsed_->root))
        if (Is(*part, tag)) return part;
    return nullptr;
}

bool IsText(const GumboNode& node) {
    return node.type == GUMBO_NODE_TEXT || node.type == GUMBO_NODE_WHITESPACE ||
           node.type == GUMBO_NODE_CDATA;
}
bool Is(const GumboNode& node, GumboTag tag) {
    return node.type == GUMBO_NODE_ELEMENT && node.v.element.tag == tag;
}
GumboTag TagOf(const GumboNode& node) {
    return node.type == GUMBO_NODE_ELEMENT ? node.v.element.tag : GUMBO_TAG_UNKNOWN;
}

std::span<GumboNode* const> ChildrenOf(const GumboNode& node) {
    if (node.type != GUMBO_NODE_ELEMENT && node.type != GUMBO_NODE_TEMPLATE) return {};
    const GumboVector& children = node.v.element.children;
    return {reinterpret_cast<GumboNode* const*>(children.data), children.length};
}

const char* Attribute(const GumboNode& node, const char* name) {
    if (node.type != GUMBO_NODE_ELEMENT) return nullptr;
    const GumboAttribute* found = gumbo_get_attribute(&node.v.element.attributes, name);
    return found ? found->value : nullptr;
}

std::string Escaped(std::string_view text, bool inQuotes) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        if (c == '&') {
            escaped += "&amp;";
        } else if (c == '<' && !inQuotes) {
            escaped += "&lt;";
        } else if (c == '>' && !inQuotes) {
            escaped += "&gt;";
        } else if (c == '"' && inQuotes) {
            escaped += "&quot;";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

}  // namespace forms::html
