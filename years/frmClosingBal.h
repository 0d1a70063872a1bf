#pragma once

#include <cstdint>

#include "platform/forms/Controls.h"
#include "ui_frmClosingBal.h"

namespace qm {

// States the closing balance of a stock ledger for the current year. The figure lives until the totals are
// next rebuilt or a new year is made.
class frmClosingBal : public forms::FormOf<Ui::frmClosingBal> {
  public:
    void Load(std::int32_t ledgerId);  // shows the screen modally for this ledger

  protected:
    void Wire() override;
    void Form_Load() override;
    std::vector<Command> CtrlCommands() override;

  private:
    bool ValidateBalance();

    void optAutomatically_Click();
    void optManually_Click();
    void cmdGetBal_Click();
    void txtClosingBal_KeyPress(int& keyAscii);
    void txtClosingBal_Validate(bool& cancel);
    void cmdSave_Click();
    void cmdExit_Click() { Unload(); }

    std::int32_t ledgerId_ = 0;
    bool stockUnavailable_ = false;  // cmdGetBal was pressed, and there was no balance to get
};

}  // namespace qm
