#include "desk/HelpPage.h"

#include <QCoreApplication>
#include <QFile>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextLayout>
#include <QUrl>
#include <QVBoxLayout>

#include "desk/Theme.h"

namespace desk {
namespace {

QString Manual() {
    QFile file(":/desk/manual.md");
    if (!file.open(QIODevice::ReadOnly)) return {};
    QString text = QString::fromUtf8(file.readAll());
    static const QRegularExpression picture("!\\[[^\\]]*\\]\\([^)]*\\)");  // they stand beside the file
    return text.remove(picture);
}

// The name that links give a heading: "Ledger and Trial Balance" is "ledger-and-trial-balance".
QString AnchorOf(const QString& heading) {
    static const QRegularExpression marks("[^a-z0-9 -]");
    return heading.toLower().remove(marks).replace(' ', '-');
}

// The toolkit gives them the colour of the system, which a dark ground may swallow.
void ColourLinks(QTextDocument& text) {
    QTextCharFormat link;
    link.setForeground(Theme::Now().accent);
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next())
        for (const QTextLayout::FormatRange& part : block.textFormats()) {
            if (!part.format.isAnchor()) continue;
            QTextCursor cursor(block);
            cursor.setPosition(block.position() + part.start);
            cursor.setPosition(block.position() + part.start + part.length, QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(link);
        }
}

}  // namespace

HelpPage::HelpPage(Desk& desk, const QString& chapter)
    : Page(desk, tr("Manual")), text_(new QTextBrowser(this)) {
    text_->setObjectName("manual");
    text_->setAccessibleName(Title());
    text_->setOpenLinks(false);
    text_->setFont(font());
    text_->document()->setDocumentMargin(16);
    text_->document()->setMarkdown(Manual());
    ColourLinks(*text_->document());
    connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) { Follow(url.fragment()); });
    auto* const find = new QLineEdit(this);
    find->setObjectName("findInManual");
    find->setPlaceholderText(tr("Find   Ctrl+F"));
    find->setAccessibleName(tr("Find in the manual"));
    connect(find, &QLineEdit::returnPressed, this, [this, find] {
        if (!text_->find(find->text())) {
            text_->moveCursor(QTextCursor::Start);
            text_->find(find->text());
        }
    });
    AddToHead(find);
    AddKey(QKeySequence::Find, [find] { find->setFocus(); });
    Body().addWidget(text_, 1);
    SetFirstFocus(text_);
    if (!chapter.isEmpty())
        QMetaObject::invokeMethod(
            this, [this, chapter] { GoTo(chapter); }, Qt::QueuedConnection);
}

void HelpPage::Follow(const QString& link) {
    for (QTextBlock block = text_->document()->begin(); block.isValid(); block = block.next())
        if (block.blockFormat().headingLevel() > 0 && AnchorOf(block.text()) == link) GoTo(block.text());
}

void HelpPage::GoTo(const QString& chapter) {
    for (QTextBlock block = text_->document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || block.text() != chapter) continue;
        QTextCursor cursor(block);
        text_->moveCursor(QTextCursor::End);
        text_->setTextCursor(cursor);
        text_->verticalScrollBar()->setValue(text_->verticalScrollBar()->value() +
                                             text_->cursorRect(cursor).top() - 8);
        return;
    }
}

}  // namespace desk
