#include "desk/ScreensPage.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeySequence>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "desk/ScreenList.h"

namespace desk {
namespace {

enum Column { Name, Purpose, Key };
constexpr int Form = Qt::UserRole;

}  // namespace

ScreensPage::ScreensPage(Desk& desk) : Page(desk, tr("Screens")), list_(new QTreeWidget(this)) {
    SetSubtitle(tr("Enter opens a screen; its key opens it from any page"));
    list_->setObjectName("screens");
    list_->setAccessibleName(tr("Screens"));
    list_->setHeaderLabels({tr("Screen"), tr("For"), tr("Key")});
    list_->setRootIsDecorated(false);
    list_->setItemsExpandable(false);
    list_->setIndentation(0);
    list_->setUniformRowHeights(false);
    list_->header()->setStretchLastSection(false);
    list_->header()->resizeSection(Name, list_->fontMetrics().averageCharWidth() * 32);
    list_->header()->setSectionResizeMode(Purpose, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(Key, QHeaderView::ResizeToContents);
    list_->header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Fill();
    connect(list_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        if (const QString form = item->data(Name, Form).toString(); !form.isEmpty())
            this->desk().OpenScreen(form.toStdString());
    });
    Body().addWidget(list_);
    SetFirstFocus(list_);
}

void ScreensPage::Fill() {
    QString section;
    for (const Screen& screen : ScreenList()) {
        if (screen.SectionText() != section) {
            section = screen.SectionText();
            auto* const head = new QTreeWidgetItem(list_, {section});
            head->setFlags(Qt::ItemIsEnabled);
            QFont bold = list_->font();
            bold.setBold(true);
            head->setFont(Name, bold);
            head->setSizeHint(Name, QSize(0, 36));
            head->setFirstColumnSpanned(true);
        }
        auto* const item = new QTreeWidgetItem(
            list_, {"    " + screen.CaptionText(), screen.PurposeText(),
                    QKeySequence(QString::fromLatin1(screen.Key)).toString(QKeySequence::NativeText)});
        item->setData(Name, Form, QString::fromLatin1(screen.Form));
        item->setSizeHint(Name, QSize(0, 32));
    }
    list_->setCurrentItem(list_->topLevelItem(1));
}

}  // namespace desk
