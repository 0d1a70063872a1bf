#include "platform/forms/controls/TreeView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

#include "platform/basic/Text.h"
#include "platform/forms/controls/Text.h"

namespace forms {

std::string Node::Text() const {
    return FromQt(text(0));
}
void Node::SetText(const std::string& text) {
    setText(0, ToQt(text));
}

std::string Node::FullPath() const {
    return Parent() ? Parent()->FullPath() + '\\' + Text() : Text();
}

void Node::SetSelected(bool selected) {
    if (selected)
        treeWidget()->setCurrentItem(this);
    else
        setSelected(false);
}

bool Node::operator<(const QTreeWidgetItem& other) const {
    return basic::CompareText(Text(), static_cast<const Node&>(other).Text()) < 0;
}

TreeView::TreeView(QWidget* parent)
    : QTreeWidget(parent), Control(this, Focus::Takes), NodeClick(this), Click(this), AfterLabelEdit(this) {
    setColumnCount(1);
    header()->hide();
    setUniformRowHeights(true);
    setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    setAutoScroll(true);
}

Node& TreeView::Add(const std::string& relative, int relationship, const std::string& key,
                    const std::string& text, const std::string& image) {
    if (!key.empty() && nodes_.contains(key))
        throw basic::Error(KeyNotUnique, "Key is not unique in collection", "forms.TreeView");
    if (!relative.empty() && relationship != tvwChild)
        basic::Raise(basic::error::InvalidCall, "forms.TreeView");
    QTreeWidgetItem* const above = relative.empty() ? invisibleRootItem() : &Item(relative);
    const QIcon icon = image.empty() || !images_ ? QIcon() : images_->Icon(image);
    auto* const node = new Node(key);
    node->SetText(text);
    node->setFlags(node->flags() | Qt::ItemIsEditable);
    if (!icon.isNull()) node->setIcon(0, icon);
    int place = 0;
    int end = above->childCount();
    if (!sorted_) place = end;
    while (place < end) {
        const int middle = (place + end) / 2;
        if (*node < *above->child(middle))
            end = middle;
        else
            place = middle + 1;
    }
    above->insertChild(place, node);
    if (!key.empty()) nodes_.emplace(key, node);
    return *node;
}

Node& TreeView::Item(const std::string& key) const {
    const auto found = nodes_.find(key);
    if (found == nodes_.end()) throw basic::Error(ElementNotFound, "Element not found", "forms.TreeView");
    return *found->second;
}

int TreeView::Count() const {
    int count = 0;
    for (QTreeWidgetItemIterator it(const_cast<TreeView*>(this)); *it; ++it) ++count;
    return count;
}

void TreeView::Clear() {
    nodes_.clear();
    ++fillings_;
    clear();
}

Node* TreeView::SelectedItem() const {
    const auto selected = selectedItems();
    return selected.isEmpty() ? nullptr : static_cast<Node*>(selected.front());
}

void TreeView::SetSorted(bool sorted) {
    sorted_ = sorted;
    if (sorted) sortItems(0, Qt::AscendingOrder);
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    const QTreeWidgetItem* const before = currentItem();
    QTreeWidget::keyPressEvent(event);
    if (currentItem() && currentItem() != before) NodeClick.Fire(*static_cast<Node*>(currentItem()));
}

// The arrow left of a node opens and closes it and is not the node.
Node* TreeView::NodeAt(const QPoint& place) const {
    QTreeWidgetItem* const item = itemAt(place);
    return item && place.x() >= visualItemRect(item).left() ? static_cast<Node*>(item) : nullptr;
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    QTreeWidget::mousePressEvent(event);
    onNode_ = NodeAt(event->position().toPoint()) != nullptr;
}

void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    const QPointer<TreeView> self = this;
    QTreeWidget::mouseReleaseEvent(event);
    Node* const node = NodeAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton) return;
    if (onNode_ && node) NodeClick.Fire(*node);
    if (self) Click.Fire();
}

bool TreeView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    return labelEdit_ && QTreeWidget::edit(index, trigger, event);
}

bool TreeView::FinishEdit() {
    return EndEdit(true);
}

bool TreeView::YieldEdit() {
    return EndEdit(false);
}

bool TreeView::EndEdit(bool keep) {
    QWidget* const editor = Editing() ? indexWidget(currentIndex()) : nullptr;
    if (!editor) return true;
    if (keep) commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    return true;
}

void TreeView::commitData(QWidget* editor) {
    if (const auto* line = qobject_cast<QLineEdit*>(editor)) newText_ = FromQt(line->text());
}

// The handler may clear the tree, so it runs when the editor is gone.
void TreeView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const QPointer<TreeView> self = this;
    QTreeWidget::closeEditor(editor, hint);
    const auto text = std::exchange(newText_, std::nullopt);
    auto* const node = static_cast<Node*>(currentItem());
    if (!text || !node) return;
    const int filling = fillings_;
    bool cancel = false;
    AfterLabelEdit.Fire(cancel, *text);
    if (self && !cancel && filling == fillings_) node->SetText(*text);
}

}  // namespace forms
