#include "desk/StatusCard.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <utility>

#include "desk/AtOnce.h"

namespace desk {

StatusCard::StatusCard(const QString& title) : text_(new QLabel(this)) {
    setObjectName("card");
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(12, 8, 12, 8);
    auto* const words = new QVBoxLayout;
    words->setSpacing(0);
    auto* const head = new QLabel(title, this);
    head->setObjectName("cardTitle");
    text_->setObjectName("status");
    text_->setWordWrap(true);
    text_->setTextFormat(Qt::PlainText);
    words->addWidget(head);
    words->addWidget(text_);
    row->addLayout(words, 1);
    setAccessibleName(title);
}

void StatusCard::Say(const QString& text, bool fault) {
    text_->setText(text);
    text_->setProperty("fault", fault);
    text_->style()->unpolish(text_);
    text_->style()->polish(text_);
    setAccessibleDescription(text);
}

QString StatusCard::Text() const {
    return text_->text();
}

QPushButton& StatusCard::AddButton(const QString& caption, std::function<void()> act) {
    auto* const button = new AtOnce<QPushButton>(caption, this);
    button->setAutoDefault(true);  // Enter presses it, as the blank does
    connect(button, &QPushButton::clicked, this, std::move(act));
    layout()->addWidget(button);
    return *button;
}

}  // namespace desk
