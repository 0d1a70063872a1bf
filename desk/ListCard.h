#pragma once

#include <QFrame>
#include <functional>
#include <memory>

#include "desk/SheetView.h"

namespace desk {

// A few rows under a title, with a button that opens the whole list. A row is known by its first cell.
class ListCard : public QFrame {
  public:
    struct Contents {
        QString Name, Title, Caption;  // under which the columns are kept; of the card; of the button
        QString Empty, EmptyText;      // where there are no rows: why, and what to do
        std::function<void(const queries::Sheet&, std::size_t row)> Activated;  // Enter on a row
        std::function<void()> All;                                              // the button
    };

    ListCard(Desk& desk, Contents contents);
    // Other rows; the card stays on the one that it stands on.
    void Set(std::shared_ptr<const queries::Sheet> sheet);
    SheetView& View() const { return *view_; }

  private:
    SheetView* view_;
};

}  // namespace desk
