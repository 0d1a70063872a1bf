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

struct Words {
    Q_DECLARE_TR_FUNCTIONS(desk::KeyList)
};

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
    dialog.setWindowTitle(Words::tr("Keys: %1").arg(page.Title()));
    dialog.resize(460, 480);
    auto* const column = new QVBoxLayout(&dialog);
    auto* const list = new QTreeWidget(&dialog);
    list->setHeaderLabels({Words::tr("Key"), Words::tr("Does")});
    list->setAccessibleName(dialog.windowTitle());
    list->setRootIsDecorated(false);
    list->setProperty("spaced", true);
    list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    AddButtons(*list, page);
    int number = 0;
    for (const PageEntry& entry : PageTable())
        new QTreeWidgetItem(list, {QString("Alt+%1").arg(++number), entry.Caption()});
    const std::pair<const char*, QString> common[] = {
        {"Enter", Words::tr("Opens what the line or the figure is made of")},
        {"Esc, Alt+Left", Words::tr("Back, to the same line")},
        {"Alt+0", Words::tr("To the answers of a message")},
        {"Ctrl+K", Words::tr("Search everything")},
        {"Ctrl+E", Words::tr("Hand over: spreadsheet, PDF, CSV, copy")},
        {"Ctrl+T", Words::tr("A chart as a table, and back")},
        {"Ctrl+Y", Words::tr("The financial year")},
        {"Ctrl+O", Words::tr("Open other books")},
        {"F5", Words::tr("Bring up to date")},
        {"F1", Words::tr("The manual, at this page's chapter")},
        {"Ctrl+Q", Words::tr("Leave")},
    };
    for (const auto& [key, does] : common) new QTreeWidgetItem(list, {key, does});
    list->setCurrentItem(list->topLevelItem(0));
    column->addWidget(list);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    column->addWidget(buttons);
    dialog.exec();
}

}  // namespace desk
