#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "ui_frmFinYear.h"

namespace qm {

// The known financial years. It moves the flag of the current year, and leads to the making of a new one. The
// year string is not refreshed: all screens go on in the old year until the next LoadCurrentYear. Kept 17.
class frmFinYear : public forms::FormOf<Ui::frmFinYear> {
  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    std::vector<Command> CtrlCommands() override;

  private:
    void FillYears();

    void lstFinYear_Click();
    void cmdSet_Click();
    void cmdAdd_Click();
    void cmdExit_Click();

    ado::RecordsetPtr years_;  // the table Fnncl_Yr_Mstr, open while the form is loaded
    int rememberedIndex_ = 0;  // of the year chosen last; outlives the window
};

}  // namespace qm
