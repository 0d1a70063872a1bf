#pragma once

#include <string>

namespace forms::html {

// What shows a document and can be read aloud.
class ReadableDocument {
  public:
    // The body's text: a row or a paragraph a line ("\r\n"), cells parted by tabs.
    virtual std::string BodyInnerText() const = 0;

  protected:
    ~ReadableDocument() = default;
};

// Lets a screen reader read each widget that is a ReadableDocument; once.
void InstallDocumentAccessible();

}  // namespace forms::html
