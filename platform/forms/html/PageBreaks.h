#pragma once

#include <vector>

#include "platform/forms/html/Layout.h"

namespace forms::html {

// Where a document, laid out whole, is cut into pages of at most this height: from 0 to its height. No row
// and no line of text is cut, unless it is higher than a page. Headings, rows of bold text with the rules
// around them, stay with what follows, as long as half a page is filled without them.
std::vector<int> PageBreaks(Layout& layout, int pageHeight);

}  // namespace forms::html
