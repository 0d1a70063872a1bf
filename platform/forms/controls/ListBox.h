#pragma once

#include <QListWidget>
#include <cstdint>
#include <vector>

#include "platform/forms/controls/Control.h"

namespace forms {

// A list of lines, of which one or (selectionMode MultiSelection in the designer) any number can be selected.
// Letters go to the next line that begins with them; in a multiple list only Space and the mouse select.
// Indexes count from 0; one out of range raises 381 "Invalid property array index".
class ListBox : public QListWidget, public Control, public basic::ListControl {
  public:
    explicit ListBox(QWidget* parent);

    std::string TypeName() const override { return "ListBox"; }
    void Clear() override;  // fires nothing
    void AddItem(const std::string& text) override;
    int ListCount() const { return count(); }
    int NewIndex() const { return count() - 1; }  // of the line added last
    std::string List(int index) const;
    std::int32_t ItemData(int index) const;  // a number that a line carries; 0 until set
    void SetItemData(int index, std::int32_t value);
    int ListIndex() const { return index_; }  // -1 for none
    void SetListIndex(int index) override;    // fires Click if it changes to a line
    bool Selected(int index) const;
    void SetSelected(int index, bool selected);  // of a single list: True is SetListIndex
    // All lines of a multiple list at once, in a time that goes with their number.
    void SelectEach(bool selected);
    std::vector<int> SelectedLines() const;  // their indexes, ascending

    Event<> Click;  // a line was chosen, by mouse, by key or by ListIndex
    Event<> DblClick;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyboardSearch(const QString& typed) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

  private:
    QListWidgetItem& Item(int index) const;
    bool Multi() const { return selectionMode() != SingleSelection; }

    int index_ = -1;
};

}  // namespace forms
