#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/forms/Controls.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "ui_frmVoucher.h"
#include "vouchers/LedgerList.h"
#include "vouchers/VoucherGrid.h"

namespace qm {

// The one screen for all four voucher types: a type and a date, then lines in a grid that balances itself.
// The type is locked as soon as it is chosen, until New or Undo.
class frmVoucher : public forms::FormOf<Ui::frmVoucher> {
  public:
    // Shows a voucher modally; 0 is a new one.
    void Load(std::int32_t trnNo);

    // The lines of a voucher as those of a new one, dated today; shown modally. Nothing is posted before
    // Save.
    void LoadCopy(std::int32_t trnNo);

    // Who wants to hear that the screen has closed: `refresh` runs then, if that form is loaded.
    void SetCallingForm(forms::Form& form, std::function<void()> refresh);

  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Unload() override;
    std::vector<Command> CtrlCommands() override;

  private:
    void Prepare();
    void LoadVoucher(std::int32_t trnNo);
    void RefreshLedgerList();
    void FillLedgerList(LedgerListKind kind);
    bool ValidateVoucher();
    bool ValidateLine(int row);
    bool Refuse(const std::string& text);
    void AskForType();

    void cmbVoucherType_Validate();
    void cmdNew_Click();
    void cmdUndo_Click();
    void cmdSave_Click();
    void cmdExit_Click() { Unload(); }

    void WireGrid();
    void PrepareCombo();
    void RefuseEdit(int row, int col, bool& cancel);
    void vsVoucher_GotFocus();
    void vsVoucher_BeforeRowColChange(int newRow, bool& cancel);
    void vsVoucher_KeyPress(int& key);
    static void vsVoucher_KeyPressEdit(int col, int& key);
    void vsCombo_LostFocus();
    void vsCombo_EditDropped();
    void vsVoucher_AfterRowColChange();
    void vsVoucher_BeforeEdit(int row, int col, bool& cancel);
    void vsVoucher_StartEdit(int row, int col, bool& cancel);
    void vsVoucher_ValidateEdit(int col, bool& cancel);
    void vsVoucher_AfterEdit(int row, int col);
    void vsVoucher_KeyDown(int& keyCode, int shift);
    void DeleteByColumn(int row, int col, int& keyCode);
    void vsCombo_ValidateEdit(bool& cancel);
    void vsCombo_AfterEdit();

    std::optional<VoucherGrid> lines_;  // over vsVoucher
    LedgerList ledgers_;                // behind vsCombo
    std::string typed_;                 // the letter that was typed on a cell of the grid, "" if none
    std::int32_t CurrentTrnNo = 0;      // the voucher on screen, 0 for a new one
    std::weak_ptr<forms::Form> CallingForm;
    std::function<void()> refreshCaller_;
};

}  // namespace qm
