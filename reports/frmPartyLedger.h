#pragma once

#include <optional>

#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "reports/DateRange.h"
#include "ui_frmPartyLedger.h"

namespace qm {

// Statements of selected ledgers, or the trial balance. Ledgers marked as deleted stand in both. Closing the
// screen rebuilds the totals over the whole year, whatever was printed.
class frmPartyLedger : public forms::FormOf<Ui::frmPartyLedger> {
  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;

  private:
    void optDetail_Click();
    void optSumm_Click();
    void ucPartyLedger_OkClick();
    void ucPartyLedger_CancelClick() { Unload(); }

    void PrintLedger();
    void PrintTrialBalance();
    static void OpeningOf(const std::string& ledgerId, std::int32_t from, double& opening);

    ado::RecordsetPtr ledgers_;  // what the list is filled from; it outlives the window
    std::optional<DateRange> range_;
};

}  // namespace qm
