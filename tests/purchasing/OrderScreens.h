#pragma once

#include "purchasing/frmPO.h"
#include "purchasing/frmPOReceipt.h"
#include "tests/inventory/ReceiptScreens.h"

// What the tests of the two order screens share: the order screen with its supplier Acme, and orders raised
// on it.
class OrderScreensTest : public ReceiptScreensTest {
  protected:
    static qm::frmPO& Orders() { return forms::Default<qm::frmPO>(); }
    static forms::VSFlexGrid& Grid() { return *Orders().ui().vsPODet; }

    void OnOrders(const std::function<void()>& visit) {
        ExpectForm("frmPO", visit);
        Orders().Show(forms::vbModal);
    }
    static void ChooseSupplier(const char* name = "Acme") { Orders().ui().cmbSuppliers->SetText(name); }
    static void ChooseOrder(const std::string& key) {
        Orders().ui().tvPO->Item(key).SetSelected(true);
        Orders().ui().tvPO->Click.Fire();
    }
    // Ticks items in the picker; a box for those that are there already comes after it.
    void PickItems(const Lines& names, const Lines& boxes = {}) {
        ExpectPick(names);
        for (const std::string& box : boxes) ExpectBox(box);
        Grid().SetFocus();
        Grid().Select(Grid().Rows() - 1, qm::OrderGrid::NameCol);
        Grid().EditCell();
    }
    static void EnterQty(int row, const std::string& qty) {
        Enter(Orders(), Grid(), row, qm::OrderGrid::QtyCol, qty);
    }
    static void SaveOrder() { Click(Orders().ui().cmdSave); }
    // Ten of coal and four of sand, as order 1.
    void RaiseOrder() {
        OnOrders([&] {
            ChooseSupplier();
            PickItems({"Coal", "Sand"});
            EnterQty(1, "10");
            EnterQty(2, "4");
            Orders().ui().txtDelTerm->SetText("at once");
            ExpectBox("Purchase Order Saved with No.'1'");
            SaveOrder();
        });
    }
    // What comes of each line, with its bill, in the window of receipts that the order's button brings.
    void Receive(const Lines& qtys, const char* discount, int number) {
        auto& receipt = forms::Default<qm::frmPOReceipt>();
        receipt.ui().txtBillNo->SetText("B/" + std::to_string(number));
        receipt.ui().cmbPurchaseLedger->SetText("Bought");
        for (int row = 1; row <= static_cast<int>(qtys.size()); ++row)
            Enter(receipt, *receipt.ui().vsItems, row, 6, qtys[static_cast<std::size_t>(row - 1)]);
        receipt.ui().txtDiscount->SetText(discount);
        ExpectBox("Saved PO Receipt with No. '" + std::to_string(number) + "'");
        Click(receipt.ui().cmdSave);
    }
    static Lines Nodes() {
        Lines texts;
        forms::TreeView& tree = *Orders().ui().tvPO;
        for (int i = 0; i < tree.topLevelItemCount(); ++i)
            texts.push_back(static_cast<forms::Node*>(tree.topLevelItem(i))->Text());
        return texts;
    }
    static Lines OrderRows() {
        return Rows("Select PoNumber, PoSupplierName, PoDate, PoDlvTerm, PoCancelled From tblPO2001");
    }
    static Lines OrderLines() {
        return Rows(
            "Select PoDetPoNo, PoDetItemID, PoDetItemDesc, PoDetQtyOrder, PoDetQtyRecd From tblPODet2001");
    }
};
