#include "desk/EmptyState.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace desk {

EmptyState::EmptyState(const QString& title, const QString& text, const QString& caption,
                       std::function<void()> act) {
    auto* const column = new QVBoxLayout(this);
    column->setSpacing(8);
    column->addStretch(2);
    const std::pair<const char*, QString> lines[] = {{"emptyTitle", title}, {"emptyText", text}};
    for (const auto& [name, words] : lines) {
        auto* const label = new QLabel(words, this);
        label->setObjectName(name);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignCenter);
        column->addWidget(label);
    }
    if (!caption.isEmpty()) {
        auto* const button = new QPushButton(caption, this);
        button->setDefault(true);
        connect(button, &QPushButton::clicked, this, std::move(act));
        column->addWidget(button, 0, Qt::AlignCenter);
        setFocusProxy(button);
    } else {  // the keys stay here, and a screen reader says why nothing is
        auto* const first = findChild<QLabel*>("emptyTitle");
        first->setFocusPolicy(Qt::StrongFocus);
        setFocusProxy(first);
    }
    column->addStretch(3);
}

}  // namespace desk
