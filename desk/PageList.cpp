#include "desk/PageList.h"

#include <QCoreApplication>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <functional>
#include <utility>

#include "desk/PageTable.h"
#include "desk/Theme.h"

namespace desk {
namespace {

constexpr int KeyRole = Qt::UserRole, HintRole = Qt::UserRole + 1;
constexpr int Width = 176, NarrowWidth = 108;

// The page's key at the right of its name.
class Hinted : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (option.rect.width() < NarrowWidth) return;
        QFont small = option.font;
        small.setPixelSize(11);
        painter->save();
        painter->setFont(small);
        painter->setPen(Theme::Now().faint);
        painter->drawText(option.rect.adjusted(0, 0, -8, 0), Qt::AlignRight | Qt::AlignVCenter,
                          index.data(HintRole).toString());
        painter->restore();
    }
};

}  // namespace

PageList::PageList(QWidget* parent, std::function<void(const QString& key)> go)
    : QListWidget(parent), go_(std::move(go)) {
    setObjectName("pages");
    setAccessibleName(QCoreApplication::translate("desk::PageList", "Pages"));
    setFixedWidth(Width);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new Hinted(this));
    int number = 0;
    for (const PageEntry& page : PageTable()) {
        auto* const item = new QListWidgetItem(page.Caption(), this);
        item->setData(KeyRole, QString::fromLatin1(page.Key));
        item->setData(HintRole, QString("Alt+%1").arg(++number));
    }
    connect(this, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item) go_(item->data(KeyRole).toString());
    });
}

void PageList::Mark(const QString& key) {
    const QSignalBlocker quiet(this);
    for (int row = 0; row < count(); ++row)
        if (item(row)->data(KeyRole) == key) setCurrentRow(row);
}

QString PageList::Marked() const {
    return currentItem() ? currentItem()->data(KeyRole).toString() : QString();
}

void PageList::SetNarrow(bool narrow) {
    setFixedWidth(narrow ? NarrowWidth : Width);
}

}  // namespace desk
