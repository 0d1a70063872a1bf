// The keys that begin and end an edit, and the list that drops from a cell.
#include <QKeyEvent>
#include <QPointer>

#include "platform/forms/controls/Keys.h"
#include "platform/forms/controls/Text.h"
#include "platform/forms/grid/CellEditor.h"
#include "platform/forms/grid/DropList.h"
#include "platform/forms/grid/VSFlexGrid.h"

namespace forms {

namespace {

bool IsEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

}  // namespace

void VSFlexGrid::KeyDefault(QKeyEvent& event, int keyAscii) {
    const bool hasList = Cols() > 0 && !List(Col()).Empty();
    if (!editable_) return FlexGrid::KeyDefault(event, keyAscii);
    if (event.key() == Qt::Key_F2 || (hasList && (OpensList(event) || IsEnter(event)))) {
        Edit();
    } else if (IsEnter(event)) {
        StepCol(1);
    } else if (keyAscii == ' ' && hasList && List(Col()).IsButton()) {
        Edit();  // as on any button
    } else if (keyAscii >= ' ') {
        Edit(QString(QChar(static_cast<char16_t>(keyAscii))));
    } else {
        FlexGrid::KeyDefault(event, keyAscii);
    }
}

void VSFlexGrid::CellPressed(const QPoint& place, bool wasCurrent) {
    const QRect cell = CellRect(Row(), Col());
    if (Model().Column(Col()).Boolean) {
        if (CellPainter::CheckRect(cell).adjusted(-4, -4, 4, 4).contains(place)) Edit();
    } else if (wasCurrent && (!List(Col()).IsButton() || CellPainter::ButtonRect(cell).contains(place))) {
        Edit();
    }
}

bool VSFlexGrid::EditorKey(QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Escape:
            DropEdit();
            EditDropped.Fire();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            EndByKey(key);
            return true;
        default:
            break;
    }
    if (List(editCol_).Count() > 0) return ListKey(key);
    if (key.key() != Qt::Key_Up && key.key() != Qt::Key_Down) return false;
    EndByKey(key);
    return true;
}

// Ends the edit and moves on, unless AfterEdit has moved by itself. Tab and the arrows are then keys of the
// grid like any other, so that a form can send Tab in its last cell elsewhere.
void VSFlexGrid::EndByKey(QKeyEvent& key) {
    const QPointer<VSFlexGrid> self = this;
    const int row = editRow_;
    const int col = editCol_;
    if (!FinishEdit() || !self || !hasFocus() || row != Row() || col != Col()) return;
    if (IsEnter(key))
        StepCol(1);
    else
        keyPressEvent(&key);
}

bool VSFlexGrid::ListKey(QKeyEvent& key) {
    if (OpensList(key)) {
        if (drop_)
            CloseList();
        else
            OpenList();
        return true;
    }
    switch (key.key()) {
        case Qt::Key_Up:
            Step(-1);
            return true;
        case Qt::Key_Down:
            Step(1);
            return true;
        case Qt::Key_PageUp:
            Step(drop_ ? -drop_->Page() : -1);
            return true;
        case Qt::Key_PageDown:
            Step(drop_ ? drop_->Page() : 1);
            return true;
        default:
            return false;
    }
}

void VSFlexGrid::OpenList() {
    if (drop_) return;
    drop_ = std::make_unique<DropList>(this, List(editCol_), [this](int entry) { Chosen(entry); });
    drop_->SetChoice(choice_);
    const QRect cell = CellRect(editRow_, editCol_);
    drop_->DropFrom(QRect(viewport()->mapToGlobal(cell.topLeft()), cell.size()));
}

void VSFlexGrid::CloseList() {
    if (!drop_) return;
    drop_->hide();
    drop_.release()->deleteLater();  // it may be the one that was clicked
}

// What is typed only narrows what is seen; the list stays whole.
void VSFlexGrid::Narrow(const QString& typed) {
    const ComboList& list = List(editCol_);
    if (list.Count() == 0) return;
    OpenList();
    drop_->Narrow(FromQt(typed));
    if (list.AllowsTyping()) drop_->SetChoice(list.Find(FromQt(typed)));
    choice_ = drop_->Choice();
}

void VSFlexGrid::Step(int step) {
    OpenList();
    drop_->StepChoice(step);
    choice_ = drop_->Choice();
    if (choice_ < 0) return;
    editor_->setText(ToQt(List(editCol_).Shown(choice_)));
    editor_->selectAll();
}

void VSFlexGrid::Chosen(int entry) {
    choice_ = entry;
    editor_->setText(ToQt(List(editCol_).Shown(entry)));
    FinishEdit();
}

}  // namespace forms
