#pragma once

#include <QTreeWidget>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/basic/Error.h"
#include "platform/basic/Value.h"
#include "platform/forms/controls/Control.h"
#include "platform/forms/controls/ImageList.h"

namespace forms {

inline constexpr std::int32_t KeyNotUnique = 35602;
inline constexpr int tvwChild = 4;  // the relationship of a node that stands below its relative

// A node of a tree. It lives until its tree is cleared.
class Node : public QTreeWidgetItem {
  public:
    const std::string& Key() const { return key_; }
    std::string Text() const;
    void SetText(const std::string& text);
    Node* Parent() const { return static_cast<Node*>(parent()); }  // null for a root
    int Children() const { return childCount(); }
    std::string FullPath() const;  // the texts from the root on, joined by "\"
    bool Selected() const { return isSelected(); }
    void SetSelected(bool selected);  // no NodeClick

    basic::Value Tag;  // free for the form's use

    bool operator<(const QTreeWidgetItem& other) const override;  // by text, ignoring case

  private:
    friend class TreeView;
    explicit Node(std::string key) : key_(std::move(key)) {}
    std::string key_;
};

// A tree of nodes, one of them selected. Labels are edited by F2 or a second click on the selected node.
class TreeView : public QTreeWidget, public Control {
  public:
    explicit TreeView(QWidget* parent = nullptr);

    std::string TypeName() const override { return "TreeView"; }

    // Adds a node: below `relative` with the relationship tvwChild, as a root if `relative` is empty. Raises
    // 35601 where there is no such relative or image, 35602 for a key that is there already. A node without a
    // key has "".
    Node& Add(const std::string& relative, int relationship, const std::string& key, const std::string& text,
              const std::string& image = {});
    Node& Item(const std::string& key) const;  // raises 35601
    int Count() const;                         // of all nodes
    void Clear();
    Node* SelectedItem() const;  // null if none is selected
    bool Sorted() const { return sorted_; }
    void SetSorted(bool sorted);  // each level by text, ignoring case; later nodes go where they belong
    void SetImageList(const ImageList* images) { images_ = images; }
    void SetLabelEdit(bool editable) { labelEdit_ = editable; }  // whether the user can edit labels

    bool Editing() const override { return state() == EditingState; }
    bool FinishEdit() override;
    bool YieldEdit() override;  // the label stays as it was

    Event<Node&> NodeClick;  // the user chose a node, by the mouse or by the arrow keys
    Event<> Click;           // after it; also where there is no node
    // Cancel, new text; also if the text is as before; not on Esc.
    Event<bool&, const std::string&> AfterLabelEdit;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void commitData(QWidget* editor) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    Node* NodeAt(const QPoint& place) const;
    bool EndEdit(bool keep);

    std::unordered_map<std::string, Node*> nodes_;
    const ImageList* images_ = nullptr;
    bool sorted_ = false;
    bool labelEdit_ = true;
    int fillings_ = 0;                    // how often it was cleared
    bool onNode_ = false;                 // the press was on a node
    std::optional<std::string> newText_;  // of a label whose editor is about to close
};

}  // namespace forms
