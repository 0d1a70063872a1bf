#include "platform/forms/controls/ListBox.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Text.h"

namespace forms {
namespace {

constexpr std::int32_t InvalidArrayIndex = 381;

}  // namespace

ListBox::ListBox(QWidget* parent)
    : QListWidget(parent), Control(this, Focus::Takes), Click(this), DblClick(this) {
    setUniformItemSizes(true);
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        index_ = row;
        if (row >= 0) Click.Fire();
    });
    connect(this, &QListWidget::itemDoubleClicked, this, [this] { DblClick.Fire(); });
}

void ListBox::Clear() {
    const QSignalBlocker quiet(this);
    clear();
    index_ = -1;
}

void ListBox::AddItem(const std::string& text) {
    const QSignalBlocker quiet(this);
    addItem(ToQt(text));
    setCurrentRow(index_, QItemSelectionModel::NoUpdate);
}

// The toolkit would choose the first line of a list that has no choice.
void ListBox::focusInEvent(QFocusEvent* event) {
    const QSignalBlocker quiet(this);
    QListWidget::focusInEvent(event);
    if (index_ < 0) selectionModel()->clearCurrentIndex();
}

QListWidgetItem& ListBox::Item(int index) const {
    QListWidgetItem* const found = item(index);
    if (!found) throw basic::Error(InvalidArrayIndex, "Invalid property array index", "forms.ListBox");
    return *found;
}

std::string ListBox::List(int index) const {
    return FromQt(Item(index).text());
}
std::int32_t ListBox::ItemData(int index) const {
    return index < 0 ? 0 : Item(index).data(Qt::UserRole).toInt();
}
void ListBox::SetItemData(int index, std::int32_t value) {
    Item(index).setData(Qt::UserRole, value);
}

void ListBox::SetListIndex(int index) {
    if (index >= 0) Item(index);
    setCurrentRow(std::max(index, -1),
                  Multi() ? QItemSelectionModel::NoUpdate : QItemSelectionModel::ClearAndSelect);
}

bool ListBox::Selected(int index) const {
    return Item(index).isSelected();
}

void ListBox::SetSelected(int index, bool selected) {
    QListWidgetItem& line = Item(index);
    if (!Multi() && selected) return SetListIndex(index);
    line.setSelected(selected);
}

// A range at a time: the toolkit goes through all ranges for each line that it is asked for or told of.
std::vector<int> ListBox::SelectedLines() const {
    std::vector<int> lines;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int line = range.top(); line <= range.bottom(); ++line) lines.push_back(line);
    std::sort(lines.begin(), lines.end());
    return lines;
}

void ListBox::SelectEach(bool selected) {
    clearSelection();
    if (!selected || count() == 0) return;
    const QItemSelection all(indexFromItem(item(0)), indexFromItem(item(count() - 1)));
    selectionModel()->select(all, QItemSelectionModel::Select);
}

// The toolkit would mark all lines by Ctrl+A.
void ListBox::keyPressEvent(QKeyEvent* event) {
    if (Multi() && event->matches(QKeySequence::SelectAll)) return event->ignore();
    QListWidget::keyPressEvent(event);
}

// The blank of Space is no letter.
void ListBox::keyboardSearch(const QString& typed) {
    if (!Multi() || typed != QStringLiteral(" ")) QListWidget::keyboardSearch(typed);
}

// Without an event it is a letter that asks, and the toolkit would select by it.
QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
    if (Multi() && !event) return QItemSelectionModel::NoUpdate;
    return QListWidget::selectionCommand(index, event);
}

}  // namespace forms
