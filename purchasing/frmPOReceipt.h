#pragma once

#include <cstdint>
#include <string>

#include "inventory/BillBoxes.h"
#include "platform/forms/Controls.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "purchasing/OrderReceiptGrid.h"
#include "ui_frmPOReceipt.h"

namespace qm {

// Goods received against one purchase order, with their bill and one entry of two lines: the supplier is
// credited, a purchase ledger debited. A saved receipt is for viewing; Ctrl+S on it books a second entry and
// a second bill under a new number, kept 56.
class frmPOReceipt : public forms::FormOf<Ui::frmPOReceipt> {
  public:
    void Load(std::int32_t poNumber);  // shows the order's receipts modally; nothing for a number below 1

  protected:
    void Wire() override;
    std::vector<Command> CtrlCommands() override;

  private:
    BillBoxes Boxes() { return BillBoxes(ui()); }
    OrderReceiptGrid Lines() { return OrderReceiptGrid(*ui().vsItems); }

    void FillPurchaseLedgers();
    void FillPOReceiptNumbers();
    void LoadReceipt();
    void LoadPOReceiptGrid();
    void ShowLine(const std::string& itemId, int row, ado::Recordset& line);
    void FillPOReceiptBill();
    void RecalcGridTotal();
    void RecalcPOBill();

    void vsItems_BeforeRowColChange(int row, bool& cancel);
    void vsItems_BeforeEdit(int row, int col, bool& cancel);
    void vsItems_KeyPressEdit(int col, int& keyAscii);
    void vsItems_ValidateEdit(int row, int col, bool& cancel);
    void vsItems_AfterEdit(int row, int col);

    bool ValidatePOReceipt();
    bool DiscountIsMeant();
    void SaveRow(int row, std::int32_t txnNo, double landingCost);
    void InsertMovement(int row, std::int32_t txnNo, double landingCost);
    void SaveBill(std::int32_t txnNo);
    void cmdSave_Click();
    void cmdExit_Click() { Unload(); }

    std::int32_t poNumber_ = 0;
};

}  // namespace qm
