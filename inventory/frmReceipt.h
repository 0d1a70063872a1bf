#pragma once

#include <cstdint>
#include <string>

#include "inventory/BillBoxes.h"
#include "inventory/StockGrid.h"
#include "platform/forms/Controls.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "ui_frmReceipt.h"

namespace qm {

// A supplier's bill without a purchase order: the goods that came in, the bill's figures, and one entry of
// two lines. A saved receipt is for viewing, but for its remarks, which Ctrl+S writes: with a second entry
// and a second bill, kept 56.
class frmReceipt : public forms::FormOf<Ui::frmReceipt> {
  public:
    void Load(std::int32_t trnNo);  // shows the receipt modally; 0: a new one

  protected:
    void Wire() override;
    std::vector<Command> CtrlCommands() override;

  private:
    StockGrid Grid();
    BillBoxes Boxes() { return BillBoxes(ui()); }

    void FillReceiptNumbers();
    void FillItemLedgers();
    void FillSuppliers();
    static void FillLedgers(forms::ComboBox& box, const std::string& groups, const std::string& more);

    void LoadReceipt();
    void SetupReceiptGrid();
    void FillReceiptGrid();
    void FillBillFields();
    void RecalcGridTotal();
    void RecalcBill();

    void vsReceipt_BeforeRowColChange(int row, bool& cancel);
    void vsReceipt_BeforeEdit(int row, int col, bool& cancel);
    void vsReceipt_KeyPressEdit(int col, int& keyAscii);
    void vsReceipt_ValidateEdit(int col, bool& cancel);
    void vsReceipt_CellButtonClick(int row);
    void vsReceipt_AfterEdit(int row, int col);
    void vsReceipt_KeyDown(int keyCode);

    bool ValidateReceipt();
    void SaveRows();
    void SaveBill();
    void cmdSave_Click();
    void cmdExit_Click() { Unload(); }

    std::int32_t trnNo_ = 0;  // of the receipt that was opened or saved last
};

}  // namespace qm
