#include "desk/ListPage.h"

#include <utility>

namespace desk {

ListPage::ListPage(Desk& desk, Contents contents)
    : SheetPage(desk, contents.Title, contents.Name), chapter_(contents.Chapter) {
    SetSubtitle(contents.Subtitle);
    View().SetEmpty(contents.Empty, contents.EmptyText);
    if (contents.Activated)
        View().Activated = [this, act = std::move(contents.Activated)](std::size_t row) {
            act(*View().Sheet(), row);
        };
    AddView();
    View().AskSlowly(std::move(contents.Make));
}

}  // namespace desk
