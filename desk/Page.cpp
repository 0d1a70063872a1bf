#include "desk/Page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

namespace desk {

Page::Page(Desk& desk, const QString& title) : desk_(desk) {
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(16, 12, 16, 12);
    all->setSpacing(8);
    auto* const strip = new QWidget(this);
    strip->setObjectName("pageHead");
    head_ = new QHBoxLayout(strip);
    head_->setContentsMargins(0, 0, 0, 0);
    auto* const words = new QVBoxLayout;
    words->setSpacing(0);
    title_ = new QLabel(strip);
    title_->setObjectName("title");
    title_->setTextFormat(Qt::PlainText);
    subtitle_ = new QLabel(strip);
    subtitle_->setObjectName("subtitle");
    subtitle_->setTextFormat(Qt::PlainText);
    subtitle_->hide();
    for (QLabel* const label : {title_, subtitle_}) {
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long name never widens it
        words->addWidget(label);
    }
    head_->addLayout(words, 1);
    all->addWidget(strip);
    body_ = new QVBoxLayout;
    body_->setSpacing(8);
    all->addLayout(body_, 1);
    SetTitle(title);
}

QString Page::Title() const {
    return title_->text();
}

void Page::SetTitle(const QString& title) {
    title_->setText(title);
    setAccessibleName(title);
}

void Page::SetSubtitle(const QString& subtitle) {
    subtitle_->setText(subtitle);
    subtitle_->setVisible(!subtitle.isEmpty());
}

QPushButton& Page::AddAction(const QString& caption, const QKeySequence& key, std::function<void()> act) {
    auto* const button = new QPushButton(caption, this);
    button->setAutoDefault(false);
    if (!key.isEmpty()) {
        button->setToolTip(key.toString(QKeySequence::NativeText));
        AddKey(key, [button] { button->click(); });
    }
    connect(button, &QPushButton::clicked, this, [this, act = std::move(act)] { desk_.Try(act); });
    AddToHead(button);
    return *button;
}

void Page::AddKey(const QKeySequence& key, std::function<void()> act) {
    auto* const shortcut = new QShortcut(key, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, act = std::move(act)] { desk_.Try(act); });
}

void Page::AddToHead(QWidget* widget) {
    head_->addWidget(widget, 0, Qt::AlignTop);
}

void Page::KeepFocus() {
    if (QWidget* const widget = focusWidget()) focus_ = widget;
}

void Page::TakeFocus() {
    if (focus_) {
        focus_->setFocus(Qt::OtherFocusReason);
    } else {
        setFocus(Qt::OtherFocusReason);
    }
}

}  // namespace desk
