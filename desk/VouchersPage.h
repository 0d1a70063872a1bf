#pragma once

#include <QCoreApplication>
#include <memory>

#include "desk/SheetPage.h"
#include "queries/Vouchers.h"

namespace desk {

class VoucherChips;

// The lines of the year's vouchers, narrowed by chips, with their count and totals. Enter opens the voucher
// on the module's screen.
class VouchersPage : public SheetPage {
    Q_DECLARE_TR_FUNCTIONS(desk::VouchersPage)

  public:
    explicit VouchersPage(Desk& desk);
    QString Chapter() const override { return "Vouchers"; }
    // Narrowed from elsewhere: a bar of a chart, a figure. `ledger` is the name of the filter's ledger.
    void Narrow(const queries::VoucherFilter& filter, const QString& ledger = {});

  private:
    void AddActions();
    void Ask();
    void Sum();
    void PrintVoucher();
    std::int32_t Number() const;  // of the voucher that is chosen, 0 for none

    VoucherChips* chips_;
    queries::VoucherOrder order_ = queries::VoucherOrder::Date;
    bool descending_ = false;
    bool isNew_ = true;  // the totals that stand are of the question before
};

}  // namespace desk
