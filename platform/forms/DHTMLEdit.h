#pragma once

#include <QAbstractScrollArea>
#include <memory>

#include "platform/forms/Control.h"

namespace forms {

namespace html {
class Document;
}

// Shows a whole document text as a browser does, for reading. No script in it runs, and nothing is fetched.
// Keys: arrows and pages scroll, Ctrl+C copies, Ctrl+F finds, F3 finds the next, Ctrl+plus, Ctrl+minus and
// Ctrl+0 zoom.
class DHTMLEdit : public QAbstractScrollArea, public Control {
  public:
    explicit DHTMLEdit(QWidget* parent);
    ~DHTMLEdit() override;

    std::string TypeName() const override { return "DHTMLEdit"; }

    std::string DocumentHTML() const;  // as it was set; after SetBodyInnerHTML, with the new body
    void SetDocumentHTML(const std::string& text);
    bool BrowseMode() const { return browseMode_; }
    // A switch that is kept; the document is shown for reading either way.
    void SetBrowseMode(bool on) { browseMode_ = on; }

    std::string BodyInnerText() const;
    std::string BodyInnerHTML() const;
    void SetBodyInnerHTML(const std::string& html);

    void PrintDocument(bool withDialog);

  private:
    std::string text_;
    bool browseMode_ = false;
};

}  // namespace forms
