#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "platform/forms/controls/ImageList.h"
#include "platform/forms/controls/TreeView.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "purchasing/OrderGrid.h"
#include "ui_frmPO.h"

namespace qm {

// Purchase orders of a supplier, as a tree with a node for each open one and one for a new one. An order is
// open, touched (some line received: it can be seen and received against, no more) or cancelled, which leaves
// the tree. It carries no money.
class frmPO : public forms::FormOf<Ui::frmPO> {
  public:
    // Shows the screen modally with its supplier and the order chosen. Raises 5 where the tree does not have
    // it: it was cancelled, or its supplier bears another name by now.
    void LoadOrder(std::int32_t order);

  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Unload() override;
    std::vector<Command> CtrlCommands() override;

  private:
    OrderGrid Lines() { return OrderGrid(*ui().vsPODet); }

    void ResetPurchaseOrders();
    void FillPOSuppliers();
    void FillPOTree();
    void ChooseOrder(std::int32_t order);
    void ShowPOLines();
    static bool POUntouched(const std::string& poNumber);

    // Of the selected node: its key less the last two characters, "N" for the new order; "" if none is
    // selected.
    std::string SelectedNumber();
    bool OrderIsSelected();
    bool OrderIsTouched();

    void tvPO_NodeClick();
    void tvPO_Click() { tvPO_NodeClick(); }
    void vsPODet_Click();
    void vsPODet_KeyDown(int& keyCode);
    void vsPODet_KeyPress(int& keyAscii);
    void vsPODet_KeyPressEdit(int col, int& keyAscii);
    void vsPODet_BeforeEdit(int row, int col, bool& cancel);
    void vsPODet_AfterEdit(int row);
    void vsPODet_CellButtonClick();

    bool ValidatePO();
    bool SupplierStands();
    bool LinesAreComplete();
    void cmdSave_Click();
    void SaveNew();
    void SaveExisting();
    void SaveLine(int row, const std::string& number);
    void InsertLine(int row, const std::string& number);
    void cmdCancelPO_Click();
    void cmdDeletePO_Click();
    void cmdRecieved_Click();
    void cmdExit_Click() { Unload(); }

    std::map<std::string, std::string> terms_;  // of delivery, by the number of the order
    ado::RecordsetPtr highest_;                 // where new numbers are drawn from, kept open between saves
    forms::ImageList imgList;
};

}  // namespace qm
