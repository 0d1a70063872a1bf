#pragma once

#include "desk/BooksCheck.h"
#include "desk/SheetPage.h"

namespace desk {

class StatusCard;

// What the check of the books found last. Below the list stands why the chosen line is so and what to do;
// Enter goes to where that is done.
class FindingsPage : public SheetPage {
    Q_DECLARE_TR_FUNCTIONS(desk::FindingsPage)

  public:
    // Shows the page, if there is anything to show.
    static void Open(Desk& desk, std::size_t row = 0);

    explicit FindingsPage(Desk& desk);
    QString Chapter() const override { return "When something goes wrong"; }
    void Refresh() override;

  private:
    void Ask(bool again);
    void TellCure();
    void CheckAgain();
    const host::Finding* Current() const;  // null for none
    void GoTo(std::size_t row);

    StatusCard* cure_;
    std::size_t first_ = 0;  // the row to begin with
};

}  // namespace desk
