#include "reports/ucHTMLBox.h"

namespace qm {

ucHTMLBox::ucHTMLBox(QWidget* parent) : UserControlOf(parent) {}

std::string ucHTMLBox::Text() {
    return ui().dhtEdit->BodyInnerText();
}
void ucHTMLBox::SetText(const std::string& html) {
    ui().dhtEdit->SetBodyInnerHTML(html);
}

std::string ucHTMLBox::rtx() {
    return ui().dhtEdit->BodyInnerHTML();
}
void ucHTMLBox::Setrtx(const basic::Value& document) {
    ui().dhtEdit->SetDocumentHTML(basic::TextOrEmpty(document));
}

void ucHTMLBox::Editable(bool browseMode) {
    ui().dhtEdit->SetBrowseMode(browseMode);
}
void ucHTMLBox::PrintReport(bool withDialog) {
    ui().dhtEdit->PrintDocument(withDialog);
}

void ucHTMLBox::SetHTMl(const std::string& text) {
    ui().dhtEdit->SetBrowseMode(true);
    ui().dhtEdit->SetDocumentHTML(text);
}

}  // namespace qm
