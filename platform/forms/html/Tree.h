#pragma once

#include <span>
#include <string>
#include <string_view>

#include <gumbo.h>

#include "platform/forms/html/Bounds.h"

namespace forms::html {

// A document text as a browser takes it: unbalanced tags are closed, a cell without its row gets one, what
// stands in a table outside its cells comes before it. Only markup made to break a reader is cut (see
// Bounds).
class Tree {
  public:
    static constexpr Bounds Reading{.Tables = 16, .Text = static_cast<std::size_t>(-1)};

    explicit Tree(std::string_view text, const Bounds& bounds = Reading);
    ~Tree();
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    const GumboNode* Head() const { return Part(GUMBO_TAG_HEAD); }  // null if there is none
    const GumboNode* Body() const { return Part(GUMBO_TAG_BODY); }

  private:
    const GumboNode* Part(GumboTag tag) const;

    const std::string text_;  // the nodes point into it
    GumboOutput* parsed_;
};

bool IsText(const GumboNode& node);  // blanks included
bool Is(const GumboNode& node, GumboTag tag);
GumboTag TagOf(const GumboNode& node);                           // GUMBO_TAG_UNKNOWN for a text, too
std::span<GumboNode* const> ChildrenOf(const GumboNode& node);   // none for a text
const char* Attribute(const GumboNode& node, const char* name);  // null if it has none

// `text` with the signs that markup uses written as such; inside a quoted value the quotes, too.
std::string Escaped(std::string_view text, bool inQuotes = false);

}  // namespace forms::html
