#include "platform/forms/DHTMLEdit.h"

namespace forms {

DHTMLEdit::DHTMLEdit(QWidget* parent) : QAbstractScrollArea(parent), Control(this, Focus::Takes) {}
DHTMLEdit::~DHTMLEdit() = default;

std::string DHTMLEdit::DocumentHTML() const {
    return text_;
}
void DHTMLEdit::SetDocumentHTML(const std::string& text) {
    text_ = text;
}
std::string DHTMLEdit::BodyInnerText() const {
    return text_;
}
std::string DHTMLEdit::BodyInnerHTML() const {
    return text_;
}
void DHTMLEdit::SetBodyInnerHTML(const std::string& html) {
    text_ = html;
}
void DHTMLEdit::PrintDocument(bool) {}

}  // namespace forms
