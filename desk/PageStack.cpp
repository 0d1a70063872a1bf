#include "desk/PageStack.h"

#include <algorithm>
#include <utility>

#include "desk/Books.h"
#include "desk/Desk.h"
#include "desk/Page.h"
#include "desk/PageTable.h"

namespace desk {
namespace {

constexpr std::size_t MostWaysBack = 40;

}  // namespace

PageStack::PageStack(Desk& desk, QWidget* none, QWidget* parent)
    : QStackedWidget(parent), desk_(desk), none_(none) {
    addWidget(none_);
}

void PageStack::Go(const QString& key) {
    const auto table = PageTable();
    const auto entry = std::ranges::find_if(table, [&](const PageEntry& each) { return key == each.Key; });
    if (entry == table.end()) return;
    Page*& page = pages_[key];
    if (!page) {
        page = entry->Make(desk_);
        addWidget(page);
        upToDate_[page] = changes_;
    }
    if (shown_ != page) KeepWayBack();
    Show(page);
}

void PageStack::Push(Page* page) {
    addWidget(page);
    upToDate_[page] = changes_;
    KeepWayBack();
    Show(page);
}

// To what is shown now. Of very many the oldest is given up: a page may hold the rows of a long list.
void PageStack::KeepWayBack() {
    if (!shown_) return;
    history_.push_back(shown_);
    if (history_.size() <= MostWaysBack) return;
    Page* const oldest = history_.front();
    history_.erase(history_.begin());
    Drop(oldest);
}

void PageStack::Back() {
    Page* const left = shown_;
    if (!history_.empty()) {
        Page* const to = history_.back();
        history_.pop_back();
        Show(to);
    } else if (!desk_.Books().AreOpen()) {
        ShowNone();
    }
    if (left && left != shown_) Drop(left);
}

// A page of the list stays, and so does one to which a way leads back.
void PageStack::Drop(Page* page) {
    const bool ofTheList = std::ranges::any_of(pages_, [&](const auto& each) { return each.second == page; });
    if (ofTheList || page == shown_ || std::ranges::count(history_, page) > 0) return;
    upToDate_.erase(page);
    page->deleteLater();
}

void PageStack::Show(Page* page) {
    if (shown_ != page) KeepFocus();
    shown_ = page;
    setCurrentWidget(page);
    for (const auto& [key, each] : pages_)
        if (each == page && Turned) Turned(key);
    if (std::exchange(upToDate_[page], changes_) != changes_) desk_.Try([&] { page->Refresh(); });
    page->TakeFocus();
}

void PageStack::ShowNone() {
    shown_ = nullptr;
    setCurrentWidget(none_);
    none_->setFocus();
}

void PageStack::Clear() {
    shown_ = nullptr;
    history_.clear();
    pages_.clear();
    upToDate_.clear();
    while (count() > 1) delete widget(1);  // the first is what stands for none
}

void PageStack::ShowChanges() {
    ++changes_;
    if (!shown_) return;
    upToDate_[shown_] = changes_;
    shown_->Refresh();
}

void PageStack::KeepFocus() {
    if (shown_) shown_->KeepFocus();
}

void PageStack::TakeFocus() {
    if (shown_) shown_->TakeFocus();
}

}  // namespace desk
