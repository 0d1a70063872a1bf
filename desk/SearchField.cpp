#include "desk/SearchField.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <algorithm>
#include <utility>

namespace desk {
namespace {

constexpr int MostRows = 12;

}  // namespace

SearchField::SearchField(QWidget& window, Source source, std::function<void()> leave)
    : source_(std::move(source)), leave_(std::move(leave)), list_(new QListWidget(&window)) {
    setObjectName("search");
    setPlaceholderText(tr("Search   Ctrl+K"));
    setAccessibleName(tr("Search"));
    setClearButtonEnabled(true);
    list_->setObjectName("results");
    list_->setAccessibleName(tr("Search results"));
    list_->setFocusPolicy(Qt::NoFocus);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setTextElideMode(Qt::ElideRight);
    list_->hide();
    connect(this, &QLineEdit::textChanged, this, [this] { Look(); });
    connect(list_, &QListWidget::itemClicked, this, [this] { OpenChosen(); });
}

void SearchField::Begin() {
    setFocus(Qt::ShortcutFocusReason);
    selectAll();
    Look();
}

void SearchField::Look() {
    const QString words = text().simplified();
    found_.clear();
    list_->clear();
    list_->hide();
    wantsFirst_ = false;
    answered_ = words.isEmpty();
    const int question = ++asked_;
    if (!words.isEmpty())
        source_(words, [this, question](std::vector<Found> found, bool isLast) {
            if (question == asked_) Add(std::move(found), isLast);
        });
}

void SearchField::Add(std::vector<Found> found, bool isLast) {
    answered_ = isLast;
    for (Found& each : found) {
        const QString detail = each.Detail.isEmpty() ? each.Kind : each.Kind + ", " + each.Detail;
        list_->addItem(each.Text + QString::fromUtf8("  \u00B7  ") + detail);
        found_.push_back(std::move(each));
    }
    if (found_.empty() && isLast) {
        list_->addItem(tr("Nothing is found for \u201C%1\u201D.").arg(text().simplified()));
        list_->item(0)->setFlags(Qt::NoItemFlags);
    }
    if (list_->count() == 0) return;
    list_->setVisible(hasFocus());
    Place();
    if (list_->currentRow() < 0) list_->setCurrentRow(0);
    if (wantsFirst_) OpenChosen();
}

void SearchField::Place() {
    const QWidget& window = *list_->parentWidget();
    const int width = std::min(std::max(this->width(), 420), window.width() - 16);
    const int rows = std::min(list_->count(), MostRows);
    const QPoint below = mapTo(&window, QPoint(this->width() - width, height() + 4));
    list_->setGeometry(std::max(8, below.x()), below.y(), width, rows * list_->sizeHintForRow(0) + 12);
    list_->raise();
}

void SearchField::Choose(int step) {
    if (found_.empty()) return;
    const int rows = list_->count();
    list_->setCurrentRow((list_->currentRow() + step + rows) % rows);
    QAccessibleEvent read(list_, QAccessible::Selection);
    QAccessible::updateAccessibility(&read);
}

void SearchField::OpenChosen() {
    const auto row = static_cast<std::size_t>(std::max(0, list_->currentRow()));
    wantsFirst_ = found_.empty() && !answered_;
    if (row >= found_.size()) return;
    const auto open = found_[row].Open;
    Leave();
    open();
}

void SearchField::Leave() {
    clear();
    list_->hide();
    leave_();
}

// Esc is its own here, not the window's.
bool SearchField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void SearchField::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Down:
            return Choose(1);
        case Qt::Key_Up:
            return Choose(-1);
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return OpenChosen();
        case Qt::Key_Escape:
            return Leave();
        default:
            QLineEdit::keyPressEvent(event);
    }
}

void SearchField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const bool movedOn =
        event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason;
    if (movedOn) wantsFirst_ = false;  // what is found late would open over what the user does by now
    if (!list_->underMouse()) list_->hide();
}

}  // namespace desk
