#include "platform/forms/grid/CellEditor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>
#include <utility>

#include "platform/forms/controls/Control.h"
#include "platform/forms/controls/Keys.h"

namespace forms {

CellEditor::CellEditor(QWidget* viewport, std::function<void(int&)> filter,
                       std::function<bool(QKeyEvent&)> command)
    : QLineEdit(viewport), filter_(std::move(filter)), command_(std::move(command)) {
    setFrame(false);
    setContextMenuPolicy(Qt::NoContextMenu);  // its Paste would go past the filter
    setDragEnabled(false);
    setAcceptDrops(false);
}

void CellEditor::TypeFirst(const QString& text) {
    clear();
    Take(text);
}

bool CellEditor::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const bool tab = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
        if (tab && command_(*key)) return true;
    }
    return QLineEdit::event(event);
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (command_(*event)) return;
    if (event->matches(QKeySequence::Paste)) return Take(QGuiApplication::clipboard()->text());
    const int ascii = KeyAsciiOf(*event);
    if (ascii == vbKeyBack) {
        int code = ascii;
        const QPointer<CellEditor> self = this;
        filter_(code);
        if (self && code == vbKeyBack) QLineEdit::keyPressEvent(event);
    } else if (ascii) {
        Take(event->text());
    } else {
        QLineEdit::keyPressEvent(event);
    }
    event->accept();  // what the box has no use for is no key of the grid under it
}

void CellEditor::inputMethodEvent(QInputMethodEvent* event) {
    const QString typed = event->commitString();
    if (typed.isEmpty()) return QLineEdit::inputMethodEvent(event);
    Take(typed);
}

// A box of one line takes a text up to the end of its first line.
void CellEditor::Take(const QString& text) {
    const QPointer<CellEditor> self = this;
    for (const QChar c : text) {
        if (c == '\n' || c == '\r') break;
        int ascii = c.unicode();
        filter_(ascii);
        if (!self) return;
        if (!ascii) continue;
        insert(QChar(static_cast<char16_t>(ascii)));
        took_ = true;
    }
    if (took_) emit textEdited(this->text());
}

}  // namespace forms
