#pragma once

#include <array>
#include <string>

#include "platform/ado/KeptRows.h"
#include "platform/ado/Recordset.h"
#include "platform/forms/grid/RowSource.h"

namespace qm {

// The amounts of the group screen's list; what is no number, such as "1500Dr", passes as it is.
std::string ListAmount(const basic::Value& value);

// A ledger's voucher rows as the group screen lists them: date, narration, the two amounts, the balance text;
// each built when it is drawn. The key is "V" and the voucher's number: rows of one voucher share it.
class LedgerVoucherLines : public forms::RowSource {
  public:
    explicit LedgerVoucherLines(ado::Recordset& rows);  // rows of tb_Ledger<FinYear>, all fields

    int Count() const override { return static_cast<int>(rows_.Count()); }
    std::string Text(int row, int column) const override;
    std::string Key(int row) const override;

  private:
    ado::KeptRows rows_;
    std::array<std::size_t, 6> fields_;  // of the five columns, then of the voucher's number
};

}  // namespace qm
