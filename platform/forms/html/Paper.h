#pragma once

#include <string>

namespace forms::html {

// What a sheet and a PDF file tell beside the document itself.
struct Paper {
    std::string Title;    // names a PDF file, and stands in its metadata
    std::string Source;   // whose figures these are; left in the bottom margin
    std::string Period;   // in its middle
    bool IsWide = false;  // the sheet lies on its side
};

}  // namespace forms::html
