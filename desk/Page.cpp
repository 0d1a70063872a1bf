#include "desk/Page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>
#include <vector>

namespace desk {

Page::Page(Desk& desk, const QString& title) : desk_(desk) {
    setObjectName("page");
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(8);
    auto* const strip = new QWidget(this);
    strip->setObjectName("pageHead");
    auto* const words = new QVBoxLayout(strip);
    words->setContentsMargins(0, 0, 0, 0);
    words->setSpacing(2);
    head_ = new QHBoxLayout;
    words->addLayout(head_);
    title_ = new QLabel(strip);
    title_->setObjectName("title");
    title_->setTextFormat(Qt::PlainText);
    subtitle_ = new QLabel(strip);
    subtitle_->setObjectName("subtitle");
    subtitle_->setTextFormat(Qt::PlainText);
    subtitle_->hide();
    for (QLabel* const label : {title_, subtitle_})
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long name never widens it
    head_->addWidget(title_, 1);
    words->addWidget(subtitle_);
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
    head_->addWidget(widget);
}

// Once everything has its place.
void Page::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (TabsAsRead())
        QMetaObject::invokeMethod(
            this, [this] { OrderTabs(); }, Qt::QueuedConnection);
}

void Page::OrderTabs() {
    std::vector<std::pair<QPoint, QWidget*>> stops;
    for (QWidget* const widget : findChildren<QWidget*>()) {
        const QPoint corner = widget->mapTo(this, QPoint());
        const bool isOnPage = widget->window() == window();  // not in a menu of the page
        if (isOnPage && (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy())
            stops.push_back({corner, widget});
    }
    std::ranges::stable_sort(stops, [](const auto& a, const auto& b) {
        return std::pair(a.first.y(), a.first.x()) < std::pair(b.first.y(), b.first.x());
    });
    for (std::size_t next = 1; next < stops.size(); ++next)
        setTabOrder(stops[next - 1].second, stops[next].second);
}

void Page::KeepFocus() {
    if (QWidget* const widget = focusWidget()) focus_ = widget;
}

void Page::TakeFocus() {
    // A list without rows to show has what stands in their place take the keys.
    QWidget* to = focus_ ? focus_.data() : this;
    while (to != this && !to->isVisibleTo(this)) to = to->parentWidget();
    to->setFocus(Qt::OtherFocusReason);
}

}  // namespace desk
