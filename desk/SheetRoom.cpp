#include "desk/SheetRoom.h"

#include <utility>

#include "desk/EmptyState.h"

namespace desk {

SheetRoom::SheetRoom(QWidget* rows, QWidget* parent)
    : QStackedWidget(parent),
      rows_(rows),
      unread_(new EmptyState(tr("This was not read to its end"), tr("F5 asks again."))) {
    addWidget(rows_);
    setFocusProxy(rows_);
    addWidget(unread_);
    SetEmpty(tr("Nothing here yet"), {});
}

void SheetRoom::SetEmpty(const QString& title, const QString& text) {
    QWidget* const before = std::exchange(empty_, new EmptyState(title, text));
    addWidget(empty_);
    if (before && currentWidget() == before) Turn(empty_);
    delete before;
}

// The keys stay with the list, also while it is empty.
void SheetRoom::Turn(QWidget* to) {
    const QWidget* const at = window()->focusWidget();
    const bool hadFocus = at == currentWidget() || currentWidget()->isAncestorOf(at);
    setCurrentWidget(to);
    setFocusProxy(to);
    if (hadFocus) to->setFocus();
}

}  // namespace desk
