#pragma once

#include <QCoreApplication>
#include <cstdint>

#include "desk/Page.h"
#include "queries/LedgerLines.h"

namespace desk {

class SheetView;

// One ledger's statement with its running balance, over the year or a part of it. Enter opens a line's
// voucher on the module's screen.
class StatementPage : public Page {
    Q_DECLARE_TR_FUNCTIONS(desk::StatementPage)

  public:
    StatementPage(Desk& desk, std::int32_t ledger, const QString& name, const queries::Range& range = {});
    QString Chapter() const override { return "Ledgers"; }
    void Refresh() override;

  private:
    void Activate(std::size_t row);
    void ShowTotals();

    SheetView* view_;
};

}  // namespace desk
