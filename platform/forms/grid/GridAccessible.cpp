#include "platform/forms/grid/GridAccessible.h"

#include "platform/forms/grid/GridView.h"

namespace forms {

namespace {

class CellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface {
  public:
    CellAccessible(GridAccessible& table, int row, int col) : table_(table), row_(row), col_(col) {}

    bool isValid() const override {
        return table_.isValid() && row_ < table_.rowCount() && col_ < table_.columnCount();
    }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return &table_; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : nullptr;
    }

    QRect rect() const override {
        const QRect cell = Grid().CellRect(row_, col_);
        return {Grid().viewport()->mapToGlobal(cell.topLeft()), cell.size()};
    }
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Description) return table_.columnDescription(col_);
        return kind == QAccessible::Name || kind == QAccessible::Value ? Grid().Shown(row_, col_).Text
                                                                       : QString();
    }
    QAccessible::Role role() const override {
        const CellShown shown = Grid().Shown(row_, col_);
        if (shown.Header) return QAccessible::ColumnHeader;
        return shown.HasCheck ? QAccessible::CheckBox : QAccessible::Cell;
    }
    QAccessible::State state() const override {
        const CellShown shown = Grid().Shown(row_, col_);
        QAccessible::State state;
        state.focusable = state.selectable = !shown.Header;
        state.checkable = shown.HasCheck;
        state.checked = shown.Checked;
        state.selected = shown.Mark != CellMark::None;
        state.focused = Grid().Active() && Grid().Current() == QPoint(col_, row_);
        state.invisible = rect().isEmpty();
        return state;
    }

    bool isSelected() const override { return state().selected; }
    QList<QAccessibleInterface*> columnHeaderCells() const override {
        if (Grid().RowAxis().Fixed() == 0) return {};
        return {table_.Cell(0, col_)};
    }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return col_; }
    int rowIndex() const override { return row_; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return &table_; }

  private:
    GridView& Grid() const { return *table_.Grid(); }

    GridAccessible& table_;
    int row_;
    int col_;
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* const grid = dynamic_cast<GridView*>(object);
    return grid ? new GridAccessible(*grid) : nullptr;
}

}  // namespace

GridAccessible::GridAccessible(GridView& grid) : QAccessibleWidget(&grid, QAccessible::Table) {}

GridAccessible::~GridAccessible() {
    for (const QAccessible::Id id : std::as_const(cells_)) QAccessible::deleteAccessibleInterface(id);
}

void GridAccessible::Install() {
    static const bool installed = (QAccessible::installFactory(MakeAccessible), true);
    static_cast<void>(installed);
}

void GridAccessible::Announce(GridView& grid, int row, int col) {
    if (!QAccessible::isActive() || !grid.hasFocus()) return;
    QAccessibleEvent event(&grid, QAccessible::Focus);
    event.setChild(row * grid.ColAxis().Count() + col);
    QAccessible::updateAccessibility(&event);
}

GridView* GridAccessible::Grid() const {
    return static_cast<GridView*>(widget());
}

QAccessibleInterface* GridAccessible::Cell(int row, int col) const {
    if (row < 0 || col < 0 || row >= rowCount() || col >= columnCount()) return nullptr;
    const int index = row * columnCount() + col;
    auto& id = cells_[index];
    if (!id)
        id = QAccessible::registerAccessibleInterface(
            new CellAccessible(const_cast<GridAccessible&>(*this), row, col));
    return QAccessible::accessibleInterface(id);
}

int GridAccessible::rowCount() const {
    return Grid()->RowAxis().Count();
}
int GridAccessible::columnCount() const {
    return Grid()->ColAxis().Count();
}
int GridAccessible::childCount() const {
    return rowCount() * columnCount();
}

QAccessibleInterface* GridAccessible::child(int index) const {
    return columnCount() == 0 ? nullptr : Cell(index / columnCount(), index % columnCount());
}

int GridAccessible::indexOfChild(const QAccessibleInterface* cell) const {
    auto* const place = const_cast<QAccessibleInterface*>(cell)->tableCellInterface();
    return place && place->table() == this ? place->rowIndex() * columnCount() + place->columnIndex() : -1;
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const {
    const QPoint place = Grid()->viewport()->mapFromGlobal(QPoint(x, y));
    return Cell(Grid()->RowAt(place.y()), Grid()->ColAt(place.x()));
}

QAccessibleInterface* GridAccessible::focusChild() const {
    if (!Grid()->hasFocus()) return QAccessibleWidget::focusChild();  // the editor of a cell
    return Cell(Grid()->Current().y(), Grid()->Current().x());
}

void* GridAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString GridAccessible::columnDescription(int column) const {
    if (Grid()->RowAxis().Fixed() == 0) return {};
    return Grid()->Shown(0, column).Text.simplified();
}

int GridAccessible::selectedCellCount() const {
    return Grid()->Current().y() >= 0 ? 1 : 0;
}

QList<QAccessibleInterface*> GridAccessible::selectedCells() const {
    QAccessibleInterface* const cell = Cell(Grid()->Current().y(), Grid()->Current().x());
    return cell ? QList<QAccessibleInterface*>{cell} : QList<QAccessibleInterface*>{};
}

}  // namespace forms
