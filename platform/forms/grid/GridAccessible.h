#pragma once

#include <QAccessibleWidget>
#include <QHash>

namespace forms {

class GridView;

// What a screen reader sees of a grid or list: a table of cells, each with its text, its heading and its
// state. Cells are made when they are asked for.
class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
  public:
    explicit GridAccessible(GridView& grid);
    ~GridAccessible() override;

    static void Install();                                   // for all grids, once
    static void Announce(GridView& grid, int row, int col);  // the cell is now the current one

    GridView* Grid() const;
    QAccessibleInterface* Cell(int row, int col) const;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* cell) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface* cellAt(int row, int column) const override { return Cell(row, column); }
    int rowCount() const override;
    int columnCount() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int) const override { return {}; }
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedRowCount() const override { return 0; }
    int selectedColumnCount() const override { return 0; }
    QList<int> selectedRows() const override { return {}; }
    QList<int> selectedColumns() const override { return {}; }
    bool isRowSelected(int) const override { return false; }
    bool isColumnSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

  private:
    mutable QHash<int, QAccessible::Id> cells_;  // by index
};

}  // namespace forms
