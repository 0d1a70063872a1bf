#pragma once

#include <string>
#include <string_view>

namespace forms::html {

// What a document text holds, as a browser reads it; without laying it out.

// The text of the body: a row or a paragraph a line, cells parted by tabs, lines by "\r\n". No script or
// style.
std::string InnerText(std::string_view document);
// The markup of the body's content as it was understood: each tag closed, names in small letters.
std::string InnerHtml(std::string_view document);
// The document with another body.
std::string WithBody(std::string_view document, std::string_view html);

}  // namespace forms::html
