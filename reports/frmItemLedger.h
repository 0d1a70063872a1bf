#pragma once

#include <optional>

#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "reports/DateRange.h"
#include "ui_frmItemLedger.h"

namespace qm {

// Stock ledgers of selected items over a range of dates. "Short Supply" stands on the screen and has no
// report behind it.
class frmItemLedger : public forms::FormOf<Ui::frmItemLedger> {
  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Activate() override;

  private:
    void ucItemLedger_OkClick();
    void ucItemLedger_CancelClick() { Unload(); }
    void PrintStockLedger();
    static void OpeningOf(const std::string& itemId, std::int32_t from, double& opening);

    ado::RecordsetPtr items_;  // what the list is filled from; it outlives the window
    std::optional<DateRange> range_;
};

}  // namespace qm
