#include "desk/RowsView.h"

#include <QHeaderView>
#include <QTableView>
#include <QTreeView>

#include "desk/Theme.h"

namespace desk {
namespace {

constexpr int RowHeight = 30;  // pixels

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
