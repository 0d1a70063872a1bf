// How a cell of the grid is edited.
#include <QEvent>
#include <QKeyEvent>
#include <QPointer>

#include "platform/forms/controls/Text.h"
#include "platform/forms/grid/CellEditor.h"
#include "platform/forms/grid/DropList.h"
#include "platform/forms/grid/VSFlexGrid.h"

namespace forms {

void VSFlexGrid::EditCell(const std::string& typed) {
    if (FinishEdit()) Edit(ToQt(typed));
}

bool VSFlexGrid::Edit(const QString& typed) {
    const QPointer<VSFlexGrid> self = this;
    const int row = Row();
    const int col = Col();
    if (!editable_ || row < FixedRows() || Cols() == 0 || ColHidden(col)) return false;
    const bool check = Model().Column(col).Boolean;
    const bool button = List(col).IsButton();
    if (!typed.isEmpty() && (button || (check && typed != QStringLiteral(" ")))) return false;
    bool cancel = false;
    BeforeEdit.Fire(row, col, cancel);
    if (!self || cancel) return false;
    if (button) {
        CellButtonClick.Fire(row, col);
        return true;
    }
    StartEdit.Fire(row, col, cancel);
    if (!self || cancel || row != Row() || col != Col() || !isVisible()) return false;
    return check ? EditCheck(row, col) : OpenEditor(typed);
}

bool VSFlexGrid::EditCheck(int row, int col) {
    const QPointer<VSFlexGrid> self = this;
    bool cancel = false;
    ValidateEdit.Fire(row, col, cancel);
    if (!self || cancel) return false;
    SetCellChecked(row, col, !CellChecked(row, col));
    AfterEdit.Fire(row, col);
    return true;
}

bool VSFlexGrid::OpenEditor(const QString& typed) {
    editRow_ = Row();
    editCol_ = Col();
    const std::string& text = TextMatrix(editRow_, editCol_);
    const ComboList& list = List(editCol_);
    choice_ = list.Find(text);
    editor_ = new CellEditor(
        viewport(), [this](int& ascii) { KeyPressEdit.Fire(editRow_, editCol_, ascii); },
        [this](QKeyEvent& key) { return EditorKey(key); });
    editor_->setStyleSheet(QStringLiteral("border: none; border-radius: 0; padding: 0 2px; min-height: 0;"));
    editor_->setObjectName(objectName() + QStringLiteral(".editor"));
    editor_->setAccessibleName(FixedRows() > 0 ? ToQt(TextMatrix(0, editCol_)) : accessibleName());
    if (editMaxLength_ > 0 && list.Count() == 0) editor_->setMaxLength(editMaxLength_);
    if (FlexGrid::Shown(editRow_, editCol_).Align == Alignment::Right) editor_->setAlignment(Qt::AlignRight);
    editor_->setText(ToQt(text));
    editor_->selectAll();
    ShowCell(editRow_, editCol_);
    ViewMoved();
    editor_->show();
    editor_->setFocus(Qt::OtherFocusReason);
    connect(editor_, &QLineEdit::textEdited, this, [this](const QString& now) { Narrow(now); });
    if (list.Count() > 0) OpenList();
    if (typed.isEmpty()) return true;
    const QPointer<CellEditor> opened = editor_;
    opened->TypeFirst(typed);
    if (opened && !opened->TookAny()) DropEdit();  // a character that the cell does not take does nothing
    return editor_ != nullptr;
}

std::string VSFlexGrid::EditText() const {
    if (!editor_) return editText_;
    const ComboList& list = List(editCol_);
    if (list.Count() == 0 || list.AllowsTyping()) return FromQt(editor_->text());
    return choice_ >= 0 ? list.Shown(choice_) : TextMatrix(editRow_, editCol_);
}

int VSFlexGrid::ComboIndex() const {
    return choice_;
}

std::string VSFlexGrid::ComboItem() const {
    return choice_ >= 0 ? List(editCol_).Shown(choice_) : std::string();
}

std::string VSFlexGrid::ComboData() const {
    return choice_ >= 0 ? List(editCol_).At(choice_).Data : std::string();
}

bool VSFlexGrid::FinishEdit() {
    if (!editor_) return true;
    if (finishing_) return false;
    const QPointer<VSFlexGrid> self = this;
    const int row = editRow_;
    const int col = editCol_;
    CloseList();
    bool cancel = false;
    finishing_ = true;
    ValidateEdit.Fire(row, col, cancel);
    if (!self) return true;
    finishing_ = false;
    if (!editor_) return true;
    if (cancel) {
        editor_->setFocus(Qt::OtherFocusReason);
        editor_->selectAll();
        return false;
    }
    editText_ = EditText();
    SetTextMatrix(row, col, editText_);
    CloseEditor();
    AfterEdit.Fire(row, col);
    return true;
}

// The grid takes the toolkit's focus back first: hiding a box that has it would send it to another control.
void VSFlexGrid::CloseEditor() {
    CloseList();
    CellEditor* const closing = editor_;
    editor_ = nullptr;
    if (closing->hasFocus()) setFocus(Qt::OtherFocusReason);
    closing->hide();
    closing->deleteLater();
    CellsChanged();
}

void VSFlexGrid::DropEdit() {
    if (editor_) CloseEditor();
}

void VSFlexGrid::ViewMoved() {
    if (!editor_) return;
    const QRect cell = CellRect(editRow_, editCol_).adjusted(2, 2, -2, -2);
    if (drop_ && cell != editor_->geometry()) CloseList();
    editor_->setGeometry(cell);
}

bool VSFlexGrid::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate) CloseList();
    return FlexGrid::event(event);
}

void VSFlexGrid::focusInEvent(QFocusEvent* event) {
    FlexGrid::focusInEvent(event);
    if (editor_) editor_->setFocus(Qt::OtherFocusReason);
}

void VSFlexGrid::hideEvent(QHideEvent* event) {
    DropEdit();
    FlexGrid::hideEvent(event);
}

}  // namespace forms
