#pragma once

#include <QCoreApplication>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "queries/Vouchers.h"

class QLineEdit;
class QMenu;
class QToolButton;

namespace desk {

class Chip;
class PeriodChip;

// What the list of vouchers is narrowed to, as a row of chips: words, period, type, ledger, amount. A chip
// that narrows shows to what, and is coloured.
class VoucherChips : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(desk::VoucherChips)

  public:
    using Ledger = std::pair<std::int32_t, std::string>;

    // The days of the year; its ledgers, asked for when they are wanted; and who hears of each change.
    VoucherChips(const queries::Range& year, std::function<std::vector<Ledger>()> ledgers,
                 std::function<void()> changed);

    const queries::VoucherFilter& Filter() const { return filter_; }
    // From elsewhere; the chip of the ledger shows its name, or that of the filter's group.
    void Set(const queries::VoucherFilter& filter, const QString& ledger = {});
    void Clear();          // who hears of changes hears of it
    bool Any() const;      // whether anything narrows
    QString Text() const;  // all that narrows, "April 2001, Receipt"

  private:
    void FillTypes(QMenu& menu);
    void FillLedgers(QMenu& menu);
    void FillAmounts(QMenu& menu);
    void Show();
    void Changed();
    QString AmountText() const;

    std::function<std::vector<Ledger>()> ledgers_;
    std::function<void()> changed_;
    queries::VoucherFilter filter_;
    QString ledgerName_;
    QLineEdit* words_;
    PeriodChip* period_;
    Chip *type_, *ledger_, *amount_;
    QToolButton* clear_;
    QTimer typed_;
};

}  // namespace desk
