#pragma once

#include <cstdint>

#include "inventory/StockGrid.h"
#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "ui_frmIssues.h"

namespace qm {

// Books stock going out: a number, a date and a grid of items. No bill, no ledger, no entry in the accounts;
// the items' balances stay as they are. A saved issue stays open for more rows.
class frmIssues : public forms::FormOf<Ui::frmIssues> {
  public:
    // Shows a saved issue, 0 a new one, and waits. Raises what a statement raises.
    void Load(std::int32_t trnNo);

  protected:
    void Wire() override;
    std::vector<Command> CtrlCommands() override;

  private:
    StockGrid Grid() { return {*ui().vsIssue, 0}; }

    void FillIssueNumbers();
    void FillIssueGrid();
    void vsIssue_BeforeEdit(int row, int col, bool& cancel);
    void vsIssue_KeyPressEdit(int col, int& keyAscii);
    void vsIssue_ValidateEdit(int col, bool& cancel);
    void vsIssue_CellButtonClick(int row);
    void vsIssue_AfterEdit(int row);
    void vsIssue_KeyDown(int keyCode);

    bool ValidateIssue();
    bool RowIsComplete(int row);
    bool StockSuffices(int row, ado::Recordset& stock);

    void cmdSave_Click();
    void cmdExit_Click() { Unload(); }
    std::int32_t IssueNumber();
    void SaveRow(int row);

    std::int32_t trnNo_ = 0;  // of the issue that is being saved, or that Load was given
};

}  // namespace qm
