#pragma once

#include <vector>

#include "platform/forms/html/Layout.h"

namespace forms::html {

// A part of the document, from Top to the first pixel below it.
struct Band {
    int Top = 0, Bottom = 0;
    int Height() const { return Bottom - Top; }
};

struct Page {
    Band Body;
    Band Heads;  // of columns, from a page before, repeated above the body; of no height if there are none
};

// Cuts a document, laid out whole, into pages of at most this height. No row and no line of text is cut,
// unless it is higher than a page. Headings, rows of bold text with the rules around them, stay with what
// follows, as long as half a page is filled without them; those of columns are repeated on the pages that
// their rows go on to.
std::vector<Page> CutPages(Layout& layout, int pageHeight);

}  // namespace forms::html
