#pragma once

#include <QCoreApplication>
#include <cstdint>

#include "desk/SheetPage.h"
#include "queries/LedgerLines.h"

namespace desk {

// One ledger's statement with its running balance, over the year or a part of it. Enter opens a line's
// voucher on the module's screen.
class StatementPage : public SheetPage {
    Q_DECLARE_TR_FUNCTIONS(desk::StatementPage)

  public:
    StatementPage(Desk& desk, std::int32_t ledger, const QString& name, const queries::Range& range = {});
    QString Chapter() const override { return "Ledgers"; }

  private:
    void Activate(std::size_t row);
    void ShowTotals();
};

}  // namespace desk
