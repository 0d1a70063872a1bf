#include "platform/forms/controls/TextBox.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

#include "platform/forms/controls/Keys.h"
#include "platform/forms/controls/Text.h"

namespace forms {

TextBox::TextBox(QWidget* parent)
    : QLineEdit(parent), Control(this, Focus::Takes), Change(this), KeyDown(this), KeyPress(this) {
    connect(this, &QLineEdit::textChanged, this, [this] { Change.Fire(); });
}

std::string TextBox::Text() const {
    return FromQt(text());
}

void TextBox::SetText(const std::string& text) {
    setText(ToQt(text));
    setCursorPosition(0);
}

void TextBox::SelectText() {
    selectAll();
}

void TextBox::SetLocked(bool locked) {
    if (locked == isReadOnly()) return;
    setReadOnly(locked);
    Restyle();
}

void TextBox::SetBackColor(unsigned colour) {
    backColor_ = colour;
    setStyleSheet("QLineEdit { background: " + ToColor(colour).name() + "; }");
}

unsigned TextBox::BackColor() const {
    return backColor_.value_or(FromColor(palette().color(QPalette::Base)));
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    if (int code = KeyCodeOf(*event); KeyDown && code != 0) {
        KeyDown.Fire(code, ShiftOf(event->modifiers()));
        if (code == 0) return event->accept();
    }
    const QString typed = event->text();
    if (!KeyPress || typed.size() != 1 || isReadOnly()) return QLineEdit::keyPressEvent(event);
    const int before = typed[0].unicode();
    if (event->key() == Qt::Key_Delete || before == vbKeyTab) return QLineEdit::keyPressEvent(event);
    int ascii = before;
    KeyPress.Fire(ascii);
    const bool enter = before == vbKeyReturn;  // no filter keeps it from the default button
    if (ascii == 0) return enter ? event->ignore() : event->accept();
    if (ascii == before) return QLineEdit::keyPressEvent(event);
    insert(QString(QChar(static_cast<char16_t>(ascii))));
}

// Composed characters do not come as keys; they pass the same filter, one by one.
void TextBox::inputMethodEvent(QInputMethodEvent* event) {
    if (!KeyPress || event->commitString().isEmpty()) return QLineEdit::inputMethodEvent(event);
    QString taken;
    for (const QChar typed : event->commitString()) {
        int ascii = typed.unicode();
        KeyPress.Fire(ascii);
        if (ascii != 0) taken += QChar(static_cast<char16_t>(ascii));
    }
    QInputMethodEvent filtered(event->preeditString(), event->attributes());
    filtered.setCommitString(taken, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&filtered);
}

TextArea::TextArea(QWidget* parent) : QPlainTextEdit(parent), Control(this, Focus::Takes), Change(this) {
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // lines wrap
    connect(this, &QPlainTextEdit::textChanged, this, [this] { Change.Fire(); });
}

std::string TextArea::Text() const {
    return FromQt(toPlainText().replace("\n", "\r\n"));
}

void TextArea::SetText(const std::string& text) {
    if (text != Text()) setPlainText(ToQt(WithLineEnds(text)));
}

}  // namespace forms
