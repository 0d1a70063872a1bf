#include "platform/forms/controls/ComboBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <utility>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Keys.h"
#include "platform/forms/controls/Text.h"

namespace forms {
namespace {

constexpr std::int32_t InvalidValue = 380, InvalidArrayIndex = 381;

// The toolkit's combo, unlike its lists, would search for the character of Ctrl+S or Backspace, and for what
// is typed next behind it.
bool IsLetter(const QKeyEvent& key) {
    return !key.text().isEmpty() && key.text().front().isPrint() &&
           !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

}  // namespace

ComboBox::ComboBox(QWidget* parent)
    : QComboBox(parent), Control(this, Focus::Takes), Change(this), Click(this) {
    setInsertPolicy(NoInsert);
    setMaxVisibleItems(20);
    setItemDelegate(new QStyledItemDelegate(this));  // the one that the style sheet reaches
    connect(this, &QComboBox::activated, this, [this](int row) {
        if (row == index_) return;
        Take(row, itemText(row));
        Click.Fire();
    });
}

std::string ComboBox::Text() const {
    return FromQt(text_);
}

void ComboBox::SetText(const std::string& text) {
    const QString wanted = ToQt(text);
    if (wanted == text_) return;
    Take(findText(wanted, Qt::MatchExactly | Qt::MatchCaseSensitive), wanted);
    const bool chosen = index_ >= 0;
    Change.Fire();
    if (chosen) Click.Fire();
}

void ComboBox::Clear() {
    const QSignalBlocker quiet(this);
    clear();
    Take(-1, {});
}

void ComboBox::AddItem(const std::string& text) {
    const QSignalBlocker quiet(this);
    addItem(ToQt(text));
    if (count() == 1) Take(index_, text_);  // the toolkit chose the first line
}

void ComboBox::CheckLine(int index) const {
    if (index < 0 || index >= count())
        throw basic::Error(InvalidArrayIndex, "Invalid property array index", "forms.ComboBox");
}

std::string ComboBox::List(int index) const {
    CheckLine(index);
    return FromQt(itemText(index));
}

std::int32_t ComboBox::ItemData(int index) const {
    if (index == -1) return 0;
    CheckLine(index);
    return itemData(index).toInt();
}

void ComboBox::SetItemData(int index, std::int32_t value) {
    CheckLine(index);
    setItemData(index, value);
}

void ComboBox::SetListIndex(int index) {
    if (index < -1 || index >= count())
        throw basic::Error(InvalidValue, "Invalid property value", "forms.ComboBox");
    if (index == -1) return Take(-1, {});
    if (index == index_) return;
    Take(index, itemText(index));
    Click.Fire();
}

// Makes text and line the state, and shows it, without an event.
void ComboBox::Take(int index, const QString& text) {
    const QSignalBlocker quiet(this);
    index_ = index;
    text_ = text;
    setCurrentIndex(index);
    if (QLineEdit* edit = lineEdit()) {
        const QSignalBlocker quietEdit(edit);
        edit->setText(text);
    }
    update();
}

void ComboBox::SetLocked(bool locked) {
    if (std::exchange(locked_, locked) == locked) return;
    if (lineEdit()) lineEdit()->setReadOnly(locked);
    setProperty("locked", locked);
    Restyle();
}

void ComboBox::OpenList() {
    if (isEnabled() && isVisible() && !locked_) showPopup();
}

// The toolkit chooses a line for the keys now and then only.
void ComboBox::showPopup() {
    QComboBox::showPopup();
    if (text_.isEmpty()) view()->setCurrentIndex(model()->index(0, modelColumn()));
    view()->installEventFilter(this);
}

// The toolkit's list would keep Tab to itself.
bool ComboBox::eventFilter(QObject* list, QEvent* event) {
    if (list != view() || event->type() != QEvent::KeyPress) return QComboBox::eventFilter(list, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab) return false;
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(list, &enter);
    hidePopup();  // no line was marked
    QCoreApplication::postEvent(this, new QKeyEvent(QEvent::KeyPress, key.key(), key.modifiers()));
    return true;
}

// The designer's `editable` is known only when the form is complete.
void ComboBox::showEvent(QShowEvent* event) {
    PrepareTyping();
    QComboBox::showEvent(event);
}

void ComboBox::PrepareTyping() {
    if (!lineEdit() || std::exchange(typing_, true)) return;
    setCompleter(nullptr);
    // By themselves they would choose the line that reads as what was typed.
    disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    lineEdit()->setReadOnly(locked_);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& typed) {
        index_ = -1;
        text_ = typed;
        Change.Fire();
    });
}

// Shows the text also where no line has it.
void ComboBox::paintEvent(QPaintEvent* event) {
    if (isEditable()) return QComboBox::paintEvent(event);
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = text_;
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
    if (OpensList(*event)) return OpenList();
    const bool moves = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (locked_ && !isEditable() && !moves) return event->ignore();
    if (event->key() == Qt::Key_Space && IsTypingName()) return SearchOn(event->text());
    if (IsLetter(*event))
        sinceLetter_.start();
    else if (!isEditable() && !event->text().isEmpty())
        return event->ignore();
    QComboBox::keyPressEvent(event);
}

// The letters of a name follow each other within the search's own pause.
bool ComboBox::IsTypingName() const {
    return !isEditable() && sinceLetter_.isValid() &&
           sinceLetter_.elapsed() < QApplication::keyboardInputInterval();
}

// The blank of a name belongs to the search; the toolkit would open the list and begin anew.
void ComboBox::SearchOn(const QString& text) {
    sinceLetter_.start();
    view()->keyboardSearch(text);
    if (const int row = view()->currentIndex().row(); row >= 0 && row != currentIndex()) {
        setCurrentIndex(row);
        emit activated(row);
    }
}

void ComboBox::mousePressEvent(QMouseEvent* event) {
    if (!locked_) QComboBox::mousePressEvent(event);
}

// The wheel over a combo that has not the focus scrolls nothing: it would change the choice unseen.
void ComboBox::wheelEvent(QWheelEvent* event) {
    if (locked_ || !hasFocus()) return event->ignore();
    QComboBox::wheelEvent(event);
}

}  // namespace forms
