#pragma once

#include <cstdint>
#include <string>

#include "platform/ado/KeptRows.h"
#include "platform/forms/grid/RowSource.h"

namespace qm {

// The lines of the day book: one for each row that its record set held when the list was filled, built when
// it is drawn.
class DayBookLines : public forms::RowSource {
  public:
    // The fields of the day book's statements, in their order.
    enum Field : std::size_t { TrnNo, TrnType, TxnDate, DrAmt, CrAmt, Code, Name, McGenerated };
    // The list's columns: Text and SubItems(1) to (6).
    enum Column { DateCol, LedgerCol, VoucherNoCol, VoucherTypeCol, DrAmountCol, CrAmountCol, GeneratedCol };

    explicit DayBookLines(ado::KeptRows rows) : rows_(std::move(rows)) {}

    int Count() const override { return static_cast<int>(rows_.Count()); }
    std::string Text(int row, int column) const override;
    // Ledger code, "vD" or "vC", voucher number, "S", number of the line within this filling: unique, and the
    // way from a line back to its voucher.
    std::string Key(int row) const override;

  private:
    ado::KeptRows rows_;
};

// The voucher number in the key of a line.
std::int32_t VoucherOfKey(const std::string& key);

}  // namespace qm
