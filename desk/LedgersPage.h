#pragma once

#include <QCoreApplication>

#include "desk/SheetPage.h"

namespace desk {

// The tree of groups with the ledgers below each: opening, debit, credit, closing. Enter opens a ledger's
// statement.
class LedgersPage : public SheetPage {
    Q_DECLARE_TR_FUNCTIONS(desk::LedgersPage)

  public:
    explicit LedgersPage(Desk& desk);
    QString Chapter() const override { return "Ledgers"; }

  private:
    void Activate(std::size_t row);
};

}  // namespace desk
