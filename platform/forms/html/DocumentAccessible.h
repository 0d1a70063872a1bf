#pragma once

namespace forms::html {

// Lets a screen reader read the document of each DHTMLEdit; once.
void InstallDocumentAccessible();

}  // namespace forms::html
