#pragma once

#include <functional>

#include "desk/SheetPage.h"

namespace desk {

// One list on a page of its own, such as what stands behind a bar of a chart.
class ListPage : public SheetPage {
  public:
    struct Contents {
        QString Name;  // under which the choice of columns is kept
        QString Title, Subtitle, Chapter;
        QString Empty, EmptyText;  // where there are no rows
        SheetView::Making Make;    // on the worker
        std::function<void(const queries::Sheet&, std::size_t row)> Activated = {};
    };

    ListPage(Desk& desk, Contents contents);
    QString Chapter() const override { return chapter_; }

  private:
    QString chapter_;
};

}  // namespace desk
