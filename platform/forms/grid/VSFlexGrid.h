#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/forms/grid/ComboList.h"
#include "platform/forms/grid/FlexGrid.h"

namespace forms {

class CellEditor;
class DropList;

// The grid that is edited cell by cell. A key brings, in this order: KeyDown, KeyPress, BeforeEdit,
// StartEdit, KeyPressEdit, ValidateEdit, AfterEdit; a move BeforeRowColChange, AfterRowColChange. Typing
// edits the current cell; Enter and Tab end the edit and move on; F2, and on a cell with a list F4, Alt+Down
// or Enter, edit it too; Esc drops the edit without AfterEdit.
class VSFlexGrid : public FlexGrid {
  public:
    explicit VSFlexGrid(QWidget* parent = nullptr);
    ~VSFlexGrid() override;

    std::string TypeName() const override { return "VSFlexGrid"; }

    // Cells. The second pair of a range is its other corner.
    const basic::Value& CellData(int row, int col) const { return Model().Extra(row, col).Data; }
    void SetCellData(int row, int col, basic::Value value) {
        Model().Extra(row, col).Data = std::move(value);
    }
    bool CellChecked(int row, int col) const { return Model().Extra(row, col).Checked; }
    void SetCellChecked(int row, int col, bool checked);
    void SetCellForeColor(int row1, int col1, int row2, int col2, unsigned colour);
    void SetCellBackColor(int row1, int col1, int row2, int col2, unsigned colour);
    unsigned CellBackColor(int row, int col) const { return Model().Extra(row, col).BackColor; }
    void SetCellFontBold(int row1, int col1, int row2, int col2, bool bold);
    void SetCellFontItalic(int row1, int col1, int row2, int col2, bool italic);
    void SetCellAlignment(int row1, int col1, int row2, int col2, Alignment alignment);
    void SetCellPicture(int row, int col, std::string image);  // name of an image; "" none

    // Columns
    void SetColBoolean(int col, bool boolean);               // its cells are check boxes
    void SetColFormat(int col, std::string mask);            // paints by basic::Format; the text stays raw
    void SetColComboList(int col, const std::string& list);  // as ComboList reads it
    void SetCellButtonPicture(std::string image) { buttonPicture_ = std::move(image); }
    void AutoSize(int col1, int col2);  // as wide as the widest text, heading included
    // A click on a heading sorts, the next one the other way. Set again, the grid stands unsorted: for new
    // rows.
    void SetExplorerSort(bool sort) {
        explorerSort_ = sort;
        sortedCol_ = -1;
    }
    void SetHighLight(bool highLight);  // whether the current cell is marked

    // Editing
    void SetEditable(bool editable) { editable_ = editable; }
    // Edits the current cell as F2 does, or, with a text, as if that were typed.
    void EditCell(const std::string& typed = {});
    bool Editing() const override { return editor_ != nullptr; }
    std::string EditText() const;  // the text that the edit would put into the cell
    void SetEditMaxLength(int length) {
        editMaxLength_ = length;
    }                               // characters that can be typed; 0: any number
    int ComboIndex() const;         // of the entry chosen by the edit, -1: none; holds through AfterEdit
    std::string ComboItem() const;  // its text; "" if none
    std::string ComboData() const;  // its data; "" if none
    bool FinishEdit() override;

    Event<int, int, bool&> BeforeEdit, StartEdit;  // row, column, Cancel
    Event<int, int, int&> KeyPressEdit;            // row, column, character; 0 drops it
    Event<int, int, bool&> ValidateEdit;           // Cancel leaves the editor open
    Event<int, int> AfterEdit;                     // fires even if the text is as before
    Event<> EditDropped;                           // by Esc, instead of the two
    Event<int, int> CellButtonClick;
    CellShown Shown(int row, int col) const override;
    bool Active() const override { return hasFocus() || Editing(); }

  protected:
    int FirstRow() const override { return FixedRows(); }
    bool LeaveCell() override { return FinishEdit(); }
    void CellsRemoved() override { DropEdit(); }
    void KeyDefault(QKeyEvent& event, int keyAscii) override;
    void CellPressed(const QPoint& place, bool wasCurrent) override;
    void HeadingClicked(int col) override;
    void ViewMoved() override;
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    template <class Set>
    void Range(int row1, int col1, int row2, int col2, Set set);
    const ComboList& List(int col) const;

    bool Edit(const QString& typed = {});  // typed: the character that begins it
    bool EditCheck(int row, int col);
    bool OpenEditor(const QString& typed);
    void CloseEditor();
    void DropEdit();  // without events
    void OpenList();
    void CloseList();
    void Narrow(const QString& typed);
    void Step(int step);
    bool EditorKey(QKeyEvent& key);
    bool ListKey(QKeyEvent& key);
    void EndByKey(QKeyEvent& key);
    void Chosen(int entry);

    std::vector<ComboList> lists_;  // by column, read once
    bool explorerSort_ = false;
    int sortedCol_ = -1;
    bool descending_ = false;
    bool highLight_ = true;
    bool editable_ = false;
    int editMaxLength_ = 0;
    std::string buttonPicture_;

    CellEditor* editor_ = nullptr;  // the edit that is open
    std::unique_ptr<DropList> drop_;
    int editRow_ = -1;
    int editCol_ = -1;
    int choice_ = -1;         // ComboIndex
    std::string editText_;    // of the last edit, once it is closed
    bool finishing_ = false;  // inside ValidateEdit
};

}  // namespace forms
