#include "desk/RowsView.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolTip>
#include <QTreeView>

#include "desk/Theme.h"

namespace desk {
namespace {

constexpr int RowHeight = 30;  // pixels

// Tells the whole text of a cell that has no room for it, where the mouse rests.
class WholeText : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        const bool isCut = index.isValid() && sizeHint(option, index).width() > option.rect.width();
        const QString text = isCut ? index.data().toString() : QString();
        QToolTip::showText(event->globalPos(), text.isEmpty() ? text : Qt::convertFromPlainText(text), view);
        return true;
    }
};

QTableView* MakeTable(QWidget* parent) {
    auto* const table = new QTableView(parent);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(RowHeight);
    table->setCornerButtonEnabled(false);
    table->setTabKeyNavigation(false);
    return table;
}

QTreeView* MakeTree(QWidget* parent) {
    auto* const tree = new QTreeView(parent);
    tree->setProperty("spaced", true);
    tree->setUniformRowHeights(true);
    tree->setExpandsOnDoubleClick(false);
    return tree;
}

}  // namespace

QAbstractItemView* MakeRowsView(SheetModel::Shape shape, QWidget* parent) {
    QAbstractItemView* view = nullptr;
    if (shape == SheetModel::Shape::Table)
        view = MakeTable(parent);
    else
        view = MakeTree(parent);
    view->setItemDelegate(new WholeText(view));
    view->setFont(Theme::Figures(view->font()));
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setTextElideMode(Qt::ElideRight);
    QHeaderView& header = HeaderOf(*view);
    header.setHighlightSections(false);
    header.setSectionsClickable(true);
    header.setContextMenuPolicy(Qt::CustomContextMenu);
    return view;
}

QHeaderView& HeaderOf(QAbstractItemView& view) {
    if (const auto* const table = qobject_cast<QTableView*>(&view)) return *table->horizontalHeader();
    return *static_cast<QTreeView&>(view).header();
}

}  // namespace desk
