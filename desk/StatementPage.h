#pragma once

#include <cstdint>
#include <functional>
#include <memory>

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
    void Ask(std::shared_ptr<queries::LedgerLines::Balances> balances);
    // `then` with the balance behind each line, read by the worker: it takes long for a long ledger.
    void ReadBalances(std::function<void(std::shared_ptr<queries::LedgerLines::Balances>)> then);
    void ShowTotals();

    std::int32_t ledger_;
    queries::Range range_;
    SheetView* view_;
};

}  // namespace desk
