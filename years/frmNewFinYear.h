#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "ui_frmNewFinYear.h"

namespace qm {

// Adds one financial year: its per-year tables, the ledgers' balances and the items' stock carried over from
// the current year, whatever year is typed.
class frmNewFinYear : public forms::FormOf<Ui::frmNewFinYear> {
  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Unload() override;

  private:
    void txtFrom_Validate(bool& cancel);
    void cmdSave_Click();
    void cmdExit_Click() { Unload(); }

    bool YearExists();
    bool PreviousYearExists();

    void CarryLedgers(const std::string& from);
    void RegisterYear(const std::string& from);
    void CarryVoucherRegister(const std::string& from);
    void MakeStockTables(const std::string& from);
    void CarryItems(const std::string& from);
    static void RollOpeningBalances(const std::string& from);

    // The table Fnncl_Yr_Mstr, open while the form is loaded. Where the one test of the year leaves it, the
    // next one begins.
    ado::RecordsetPtr years_;
};

}  // namespace qm
