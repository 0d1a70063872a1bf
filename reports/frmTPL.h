#pragma once

#include "platform/forms/Controls.h"
#include "ui_frmTPL.h"

namespace qm {

// The final results up to a date: Trading account, Profit & Loss account and Balance Sheet on one page. The
// date is not tested: it may lie outside the year. Results are viewed once for each opening of the screen.
class frmTPL : public forms::FormOf<Ui::frmTPL> {
  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Unload() override;
    std::vector<Command> CtrlCommands() override;

  private:
    void cmdView_Click();
    void cmdPrint_Click();
    void cmdClose_Click() { Unload(); }
};

}  // namespace qm
