#include "desk/KeyList.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "desk/Page.h"
#include "desk/PageTable.h"
#include "desk/Theme.h"

namespace desk {
namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("desk::KeyList", text);
}

// What the buttons of a page say themselves: a key in the tip, or a letter in the caption.
void AddButtons(QTreeWidget& list, Page& page) {
    for (const QAbstractButton* const button : page.findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->text().isEmpty()) continue;
        QString caption = button->text();
        caption.remove('&').remove(QString::fromUtf8(" \u25BE"));
        const QKeySequence tip = QKeySequence::fromString(button->toolTip(), QKeySequence::NativeText);
        const QKeySequence letter = QKeySequence::mnemonic(button->text());
        const bool isKey = tip.toString(QKeySequence::NativeText) == button->toolTip();  // and nothing more
        if (const QKeySequence key = isKey && !tip.isEmpty() ? tip : letter; !key.isEmpty())
            new QTreeWidgetItem(&list, {key.toString(QKeySequence::NativeText), caption});
    }
}

}  // namespace

void ShowKeys(QWidget& window, Page& page) {
    QDialog dialog(&window);
    dialog.setObjectName("keys");
    dialog.setWindowTitle(Tr("Keys: %1").arg(page.Title()));
    dialog.resize(460, 480);
    auto* const column = new QVBoxLayout(&dialog);
    auto* const list = new QTreeWidget(&dialog);
    list->setHeaderLabels({Tr("Key"), Tr("Does")});
    list->setRootIsDecorated(false);
    list->setProperty("spaced", true);
    list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    AddButtons(*list, page);
    int number = 0;
    for (const PageEntry& entry : PageTable())
        new QTreeWidgetItem(list, {QString("Alt+%1").arg(++number), entry.Caption()});
    const std::pair<const char*, const char*> common[] = {
        {"Enter", QT_TRANSLATE_NOOP("desk::KeyList", "Opens what the line or the figure is made of")},
        {"Esc, Alt+Left", QT_TRANSLATE_NOOP("desk::KeyList", "Back, to the same line")},
        {"Ctrl+K", QT_TRANSLATE_NOOP("desk::KeyList", "Search everything")},
        {"Ctrl+E", QT_TRANSLATE_NOOP("desk::KeyList", "Hand over: spreadsheet, PDF, CSV, copy")},
        {"Ctrl+T", QT_TRANSLATE_NOOP("desk::KeyList", "A chart as a table, and back")},
        {"Ctrl+Y", QT_TRANSLATE_NOOP("desk::KeyList", "The financial year")},
        {"Ctrl+O", QT_TRANSLATE_NOOP("desk::KeyList", "Open other books")},
        {"F5", QT_TRANSLATE_NOOP("desk::KeyList", "Bring up to date")},
        {"F1", QT_TRANSLATE_NOOP("desk::KeyList", "The manual, at this page's chapter")},
        {"Ctrl+Q", QT_TRANSLATE_NOOP("desk::KeyList", "Leave")},
    };
    for (const auto& [key, does] : common) new QTreeWidgetItem(list, {key, Tr(does)});
    list->setCurrentItem(list->topLevelItem(0));
    column->addWidget(list);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    column->addWidget(buttons);
    dialog.exec();
}

}  // namespace desk
