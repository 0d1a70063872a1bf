#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/forms/controls/Control.h"
#include "platform/forms/grid/GridView.h"
#include "platform/forms/grid/RowSource.h"

namespace forms {

// One line of a list view. Keys need not be unique.
struct ListLine {
    std::string Key;
    std::string Text;                   // the first column
    std::vector<std::string> SubItems;  // the others: SubItems[0] stands in the second column

    // Counted from 1, as the columns after the first; "" where there is none.
    const std::string& SubItem(int index) const;
};

// A list with columns and headings, one line of it selected. Lines are added one by one, or drawn from a
// source without being built: a million lines open at once. After a fill the first line is selected.
class ListView : public GridView, public Control {
  public:
    explicit ListView(QWidget* parent = nullptr);

    std::string TypeName() const override { return "ListView"; }

    // Painted in grey over a list without lines; none of its texts.
    void SetEmptyNote(const std::string& note);

    // Columns count from 1, as ColumnClick does.
    void AddColumn(std::string caption, int width, Alignment alignment = Alignment::Left);  // width in twips
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    const std::string& ColumnText(int column) const { return At(column).Caption; }
    void SetColumnText(int column, std::string caption);
    int ColumnWidth(int column) const { return At(column).Width; }
    void SetColumnWidth(int column, int width);

    void Clear();
    void AddItem(std::string key, std::string text, std::vector<std::string> subItems = {});
    // Instead of added lines; call again when its rows changed.
    void SetRowSource(std::shared_ptr<RowSource> source);
    int Count() const { return source_->Count(); }
    ListLine Item(int index) const;  // counted from 1, in the order shown; raises 9

    std::optional<ListLine> SelectedItem() const;  // none if the list is empty
    int SelectedIndex() const;                     // counted from 1, in the order shown; 0: none
    void SetSelectedIndex(int index);

    // Sorts by the texts of one column, ignoring case. Turned off, the lines stay as they stand until the
    // next fill.
    bool Sorted() const { return sorted_; }
    void SetSorted(bool sorted);
    int SortKey() const { return sortKey_; }  // 0: the first column
    void SetSortKey(int key);
    int SortOrder() const { return sortOrder_; }  // 0 ascending, 1 descending
    void SetSortOrder(int order);

    Event<int> ColumnClick;            // the column, from 1
    Event<const ListLine&> ItemClick;  // by the mouse, or by Enter on the selected line
    Event<> Click, DblClick;

    CellShown Shown(int row, int col) const override;
    QPoint Current() const override { return {0, SelectedIndex() > 0 ? SelectedIndex() : -1}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void MeasureRows(GridAxis& rows) const override;
    void MeasureCols(GridAxis& cols) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    struct Column {
        std::string Caption;
        int Width;
        Alignment Align;
    };
    class Lines;

    const Column& At(int column) const;
    Column& At(int column);
    void Refilled();
    void Resort();
    void BringUpToDate() const;
    int RowShownAt(int index) const;  // the source's row at a place of the list, both from 0
    void FireItemClick();

    std::vector<Column> columns_;
    std::shared_ptr<Lines> own_;
    std::shared_ptr<RowSource> source_;
    bool sorted_ = false;
    int sortKey_ = 0;
    int sortOrder_ = 0;
    mutable std::vector<std::uint32_t> order_;  // places to rows; empty: as they come
    mutable bool orderStale_ = false;
    mutable int selected_ = -1;  // a place; -1: the first one
    int pressedRow_ = -1;
    int pressedCol_ = -1;
    bool doubled_ = false;
    QString emptyNote_;
};

}  // namespace forms
