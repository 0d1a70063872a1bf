#include "desk/TabPage.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QStackedWidget>
#include <QTabBar>
#include <algorithm>
#include <utility>

namespace desk {

TabPage::TabPage(Desk& desk, const QString& title)
    : Page(desk, title),
      bar_(new QTabBar(this)),
      filterRow_(new QWidget(this)),
      views_(new QStackedWidget(this)),
      buttons_(new QStackedWidget(this)) {
    bar_->setObjectName("tabs");
    bar_->setDrawBase(false);
    bar_->setExpanding(false);
    bar_->setElideMode(Qt::ElideNone);
    bar_->setUsesScrollButtons(true);
    bar_->setAccessibleName(title);
    auto* const row = new QHBoxLayout(filterRow_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch(1);
    Body().addWidget(bar_);
    Body().addWidget(filterRow_);
    Body().addWidget(views_, 1);
    buttons_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(bar_, &QTabBar::currentChanged, this, [this](int tab) {
        Turn(tab);
        if (!bar_->hasFocus()) View().setFocus();
    });
    AddKey(QKeySequence(Qt::CTRL | Qt::Key_PageDown), [this] { Turn((Tab() + 1) % bar_->count()); });
    AddKey(QKeySequence(Qt::CTRL | Qt::Key_PageUp),
           [this] { Turn((Tab() + bar_->count() - 1) % bar_->count()); });
}

SheetView& TabPage::AddTab(const QString& caption, const QString& name, SheetView::Shape shape,
                           std::function<void(SheetView&)> ask) {
    auto* const view = new SheetView(desk(), name, shape);
    if (tabs_.empty()) AddToHead(buttons_);
    tabs_.push_back({view, std::move(ask)});
    views_->addWidget(view);
    buttons_->addWidget(view->Buttons());
    view->View().setAccessibleName(QString(caption).remove('&'));
    const QSignalBlocker quiet(bar_);
    bar_->addTab(caption);
    return *view;
}

void TabPage::AddFilter(QWidget* filter, std::initializer_list<int> tabs) {
    auto& row = static_cast<QHBoxLayout&>(*filterRow_->layout());
    row.insertWidget(row.count() - 1, filter);
    filters_.push_back({filter, tabs});
}

int TabPage::Tab() const {
    return bar_->currentIndex();
}

void TabPage::Turn(int tab) {
    if (tab != Tab()) return bar_->setCurrentIndex(tab);  // which comes here again
    views_->setCurrentIndex(tab);
    buttons_->setCurrentIndex(tab);
    bool any = false;
    for (const Filter& filter : filters_) {
        const bool stands = filter.Tabs.empty() || std::ranges::count(filter.Tabs, tab) > 0;
        filter.Widget->setVisible(stands);
        any = any || stands;
    }
    filterRow_->setVisible(any);
    SetFirstFocus(&View());
    Turned();
    Show();
}

void TabPage::Show() {
    TabOf& tab = tabs_[static_cast<std::size_t>(Tab())];
    switch (std::exchange(tab.Is, State::UpToDate)) {
        case State::New:
            return tab.Ask(*tab.View);
        case State::Old:
            return tab.View->Refresh();
        case State::UpToDate:
            return;
    }
}

void TabPage::Mark(State state) {
    for (TabOf& tab : tabs_)
        if (tab.Is != State::New) tab.Is = state;
}

void TabPage::Refresh() {
    Mark(State::Old);
    Show();
}

void TabPage::Narrowed() {
    Mark(State::New);
    Turned();
    Show();
}

}  // namespace desk
