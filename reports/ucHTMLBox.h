#pragma once

#include "platform/basic/Value.h"
#include "platform/forms/Controls.h"
#include "ui_ucHTMLBox.h"

namespace qm {

// Shows a report, hands it back and prints it.
class ucHTMLBox : public forms::UserControlOf<Ui::ucHTMLBox> {
  public:
    explicit ucHTMLBox(QWidget* parent);

    // The two halves differ, and callers count on it: what is read is the body's inner text, what is set
    // becomes its inner HTML.
    std::string Text();
    void SetText(const std::string& html) override;
    // Read, the body's inner HTML; set, the whole document's text. Null makes it empty.
    std::string rtx();
    void Setrtx(const basic::Value& document);

    void Editable(bool browseMode);         // stores the flag unchanged in the control's browse-mode switch
    void PrintReport(bool withDialog);      // prints the document, with the print dialog if True
    void SetHTMl(const std::string& text);  // shows the document read-only, whatever Editable left
};

}  // namespace qm
