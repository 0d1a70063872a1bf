#include "desk/ListPage.h"

#include <QAbstractItemView>
#include <QVBoxLayout>
#include <utility>

namespace desk {

ListPage::ListPage(Desk& desk, Contents contents)
    : Page(desk, contents.Title), chapter_(contents.Chapter), view_(new SheetView(desk, contents.Name)) {
    SetSubtitle(contents.Subtitle);
    view_->SetEmpty(contents.Empty, contents.EmptyText);
    if (contents.Activated)
        view_->Activated = [this, act = std::move(contents.Activated)](std::size_t row) {
            act(*view_->Sheet(), row);
        };
    AddToHead(view_->Buttons());
    Body().addWidget(view_);
    view_->View().setAccessibleName(Title());
    SetFirstFocus(view_);
    view_->AskSlowly(std::move(contents.Make));
}

}  // namespace desk
