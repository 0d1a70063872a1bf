#pragma once

#include <QCoreApplication>

#include "desk/Page.h"

namespace desk {

class SheetView;

// The tree of groups with the ledgers below each: opening, debit, credit, closing. Enter opens a ledger's
// statement.
class LedgersPage : public Page {
    Q_DECLARE_TR_FUNCTIONS(desk::LedgersPage)

  public:
    explicit LedgersPage(Desk& desk);
    QString Chapter() const override { return "Ledgers"; }
    void Refresh() override;

  private:
    void Activate(std::size_t row);

    SheetView* view_;
};

}  // namespace desk
