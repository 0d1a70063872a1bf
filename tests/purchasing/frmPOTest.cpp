// Orders as a buyer raises, changes and drops them.
#include <gmock/gmock.h>

#include "tests/purchasing/OrderScreens.h"

using namespace testing;

namespace {

using Col = qm::OrderGrid;

class OrderTest : public OrderScreensTest {
  protected:
    // As a receipt of its second line leaves the order.
    static void Touch() { Run("Update tblPODet2001 Set PoDetQtyRecd = 1 Where PoDetItemID = 2"); }
    static Lines Shown() {
        Lines rows = RowTexts(Grid(), Col::ItemCol, Col::Columns - 1);
        for (std::size_t row = 0; row < rows.size(); ++row)
            rows[row].insert(0, Grid().RowHidden(static_cast<int>(row) + 1) ? "hidden|" : "|");
        return rows;
    }
};

TEST_F(OrderTest, IsRaisedAndShownInTheTree) {
    books.AddLedger("Bolt", "Debtors");
    RaiseOrder();
    EXPECT_EQ(OrderRows(), Lines{"1|Acme|37009|at once|False"});
    EXPECT_EQ(OrderLines(), (Lines{"1|1|Coal|10|Null", "1|2|Sand|4|Null"}));
    OnOrders([&] {
        EXPECT_EQ(Nodes(), Lines{});
        ChooseSupplier();
        EXPECT_EQ(Nodes(), (Lines{"1", "<New>"}));
        EXPECT_EQ(Active(Orders()), "tvPO");
        EXPECT_EQ(Orders().ui().tvPO->SelectedItem()->Text(), "<New>");
        EXPECT_EQ(Orders().ui().txtDelTerm->Text(), "");
        EXPECT_FALSE(Orders().ui().cmdRecieved->Enabled());
        ChooseOrder("1PO");
        EXPECT_EQ(Shown(), (Lines{"|1|Coal|100|10", "|2|Sand|50|4", "||||"}));
        EXPECT_EQ(Orders().ui().txtDelTerm->Text(), "at once");
        EXPECT_TRUE(Orders().ui().cmdRecieved->Enabled());
        Orders().ui().dtpDate->SetValue(basic::MakeDate(2001, 6, 1));
        ChooseSupplier("Bolt");  // without an order: the terms stay
        EXPECT_EQ(Orders().ui().txtDelTerm->Text(), "at once");
        ChooseSupplier();
        ChooseOrder("1PO");
        ChooseOrder("New");
        EXPECT_EQ(Shown(), Lines{"||||"});
        EXPECT_EQ(Orders().ui().txtDelTerm->Text(), "");
        EXPECT_EQ(Orders().ui().dtpDate->Value(), basic::MakeDate(2001, 4, 30));
        EXPECT_FALSE(Orders().ui().cmdCancelPO->Enabled() || Orders().ui().cmdDeletePO->Enabled());
    });
}

// Nothing stands after a save; a second order draws its number from the refreshed set.
TEST_F(OrderTest, SavesInOneTransactionAndEndsSilentlyWithoutLines) {
    AddItem(3, "Pete's peat", "7");
    OnOrders([&] {
        ChooseSupplier();
        SaveOrder();  // no lines: silent
        PickItems({"Coal", "Pete's peat"});
        EnterQty(1, "1");
        EnterQty(2, "1");
        ExpectBox("Cannot save Purchase Order");  // head and first line are undone
        ExpectLogged("frmPO", "Syntax error: a text does not end", "ado.Statement");
        SaveOrder();
        EXPECT_EQ(OrderRows().size() + OrderLines().size(), 0U);
        Orders().ui().txtDelTerm->SetText("by \"rail\"");
        ExpectBox("Cannot save Purchase Order");
        ExpectLogged("frmPO", "Syntax error: ')' is expected where 'rail' stands", "ado.Statement");
        SaveOrder();
        EXPECT_EQ(OrderRows(), Lines{});
        for (const char* number : {"1", "2"}) {
            ChooseSupplier("");
            ChooseSupplier();
            PickItems({"Coal"});
            EnterQty(1, "3");
            Orders().ui().txtDelTerm->SetText("");
            ExpectBox("Purchase Order Saved with No.'" + std::string(number) + "'");
            SaveOrder();
            EXPECT_EQ(Nodes(), Lines{});
        }
    });
    EXPECT_EQ(OrderLines(), (Lines{"1|1|Coal|3|Null", "2|1|Coal|3|Null"}));
}

// A year may lack the tables of orders; back in the year that has them, the same window saves.
TEST_F(OrderTest, DrawsItsNumberAgainAfterAFailure) {
    OnOrders([&] {
        ChooseSupplier();
        PickItems({"Coal"});
        EnterQty(1, "1");
        qm::shared().FinYear = "1999";
        Orders().ui().dtpDate->SetValue(basic::MakeDate(1999, 5, 1));
        ExpectBox("Cannot save Purchase Order");
        ExpectLogged("frmPO", "The table 'tblPo1999' is not in the books", "ado.Statement");
        SaveOrder();
        qm::shared().FinYear = "2001";
        Orders().ui().dtpDate->SetValue(basic::MakeDate(2001, 5, 1));
        ExpectBox("Purchase Order Saved with No.'1'");
        SaveOrder();
    });
}

TEST_F(OrderTest, AFailedChangeLeavesTheOrder) {
    RaiseOrder();
    OnOrders([&] {
        ChooseSupplier();
        ChooseOrder("1PO");
        EnterQty(1, "5");
        EnterQty(2, "6");
        Orders().ui().txtDelTerm->SetText("later");
        Run("Delete From tblPODet2001 Where PoDetItemID = 2");
        ExpectBox("Cannot save Purchase Order");
        ExpectLogged("frmPO");
        SaveOrder();
    });
    EXPECT_EQ(OrderRows(), Lines{"1|Acme|37009|at once|False"});
    EXPECT_EQ(OrderLines(), Lines{"1|1|Coal|10|Null"});
}

TEST_F(OrderTest, ChangesALineAddsOneAndHidesOne) {
    RaiseOrder();
    AddItem(3, "Lime", "7");
    OnOrders([&] {
        ChooseSupplier();
        ChooseOrder("1PO");
        EnterQty(1, "12.5");
        EnterQty(2, "9");  // in vain: what is hidden is deleted, edited or not
        Grid().Select(2, Col::QtyCol);
        Key(Orders(), Qt::Key_Delete);
        EXPECT_TRUE(Grid().RowHidden(2));
        PickItems({"Coal", "Sand", "Lime"},
                  {"Item 'Coal' already added !!!"});  // the hidden one is passed over in silence
        EXPECT_EQ(Shown(), (Lines{"|1|Coal|100|12.5", "hidden|2|Sand|50|9", "|3|Lime|7|", "||||"}));
        ExpectBox("Please enter the qty. ordered for item 'Lime'");
        SaveOrder();
        EXPECT_EQ(std::pair(Grid().Row(), Grid().Col()), std::pair(3, int{Col::QtyCol}));
        EXPECT_EQ(Active(Orders()), "vsPODet");
        EnterQty(3, "1");
        Orders().ui().dtpDate->SetValue(basic::MakeDate(2001, 5, 1));
        ExpectBox("Purchase order saved");
        SaveOrder();
    });
    EXPECT_EQ(OrderRows(), Lines{"1|Acme|37010|at once|False"});
    EXPECT_EQ(OrderLines(), (Lines{"1|1|Coal|12.5|Null", "1|3|Lime|1|Null"}));
}

TEST_F(OrderTest, ATouchedOrderIsForViewingOnly) {
    RaiseOrder();
    Touch();
    Run("Update Ledger_Master Set Deleted = True");  // a deleted supplier's orders stay in reach
    const std::string locked = "One or more items have been received\r\n\r\nCannot edit PO";
    OnOrders([&] {
        ChooseSupplier();
        ChooseOrder("1PO");
        EXPECT_FALSE(Orders().ui().txtDelTerm->Enabled());
        EXPECT_FALSE(Orders().ui().dtpDate->Enabled());
        Grid().SetFocus();
        for (const Qt::Key key : {Qt::Key_5, Qt::Key_Delete, Qt::Key_Control, Qt::Key_Tab, Qt::Key_Down}) {
            ExpectBox(locked);
            Key(Orders(), key);
        }
        ExpectBox(locked);
        ClickCell(Grid(), 1, Col::QtyCol);
        EXPECT_EQ(Shown(), (Lines{"|1|Coal|100|10", "|2|Sand|50|4", "||||"}));
        ExpectBox("Cancel PO No. '1'\r\n\r\nAre you sure ?", qm::vbYesNo, qm::vbYes);
        ExpectBox("One or more items have been received for Purchase Order No.1\r\n\r\nCannot Cancel !!!");
        Click(Orders().ui().cmdCancelPO);
        EXPECT_EQ(Nodes(), (Lines{"1", "<New>"}));
        ExpectBox("Delete PO No. '1'\r\n\r\nAre you sure ?", qm::vbYesNo + qm::vbInformation, qm::vbYes);
        ExpectBox("One or more items have been received for Purchase Order No.1\r\n\r\nCannot Delete !!!");
        Click(Orders().ui().cmdDeletePO);
        EXPECT_EQ(Nodes(), Lines{});
    });
    EXPECT_EQ(OrderLines(), (Lines{"1|1|Coal|10|Null", "1|2|Sand|4|1"}));
}

// In part and in full: the order stays in the tree and can be received against; a save changes nothing, the
// date of old included.
TEST_F(OrderTest, FollowsItsReceipts) {
    books.AddLedger("Bought", "Purchase");
    RaiseOrder();
    Run("Update tblPO2001 Set PoDate = 36990");
    const auto isMarked = [] { return !Orders().ui().tvPO->Item("1PO").icon(0).isNull(); };
    OnOrders([&] {
        ChooseSupplier();
        EXPECT_FALSE(isMarked());
        int number = 0;
        for (const Lines& came : {Lines{"3"}, Lines{"7", "4"}}) {
            ChooseOrder("1PO");
            script.Modal("frmPOReceipt", [&](forms::Form& form) {
                BringToFront(form);
                Receive(came, "", ++number);
            });
            Click(Orders().ui().cmdRecieved);
            EXPECT_EQ(Orders().ui().cmbSuppliers->Text(), "Acme");
            EXPECT_EQ(Nodes(), (Lines{"1", "<New>"}));
            EXPECT_TRUE(isMarked());
            EXPECT_FALSE(Orders().ui().cmdRecieved->Enabled()) << "<New> is selected";
            ChooseOrder("1PO");
            EXPECT_FALSE(Orders().ui().txtDelTerm->Enabled());
            EXPECT_TRUE(Orders().ui().cmdRecieved->Enabled());
        }
        ExpectBox("Purchase order saved");
        SaveOrder();
    });
    EXPECT_EQ(OrderRows(), Lines{"1|Acme|36990|at once|False"});
    EXPECT_EQ(OrderLines(), (Lines{"1|1|Coal|10|10", "1|2|Sand|4|4"}));
}

TEST_F(OrderTest, IsCancelledOrDeleted) {
    RaiseOrder();
    OnOrders([&] {
        ChooseSupplier();
        ChooseOrder("1PO");
        ExpectBox("Delete PO No. '1'\r\n\r\nAre you sure ?", qm::vbYesNo + qm::vbInformation, qm::vbNo);
        Click(Orders().ui().cmdDeletePO);
        EXPECT_EQ(Orders().ui().cmbSuppliers->Text(), "");  // empty after No as well
        PickItems({"Coal"});
        Click(Orders().ui().cmdDeletePO);  // no order is selected: nothing is asked
        EXPECT_EQ(Shown(), Lines{"||||"});
        ChooseSupplier();
        ChooseOrder("1PO");
        ExpectBox("Cancel PO No. '1'\r\n\r\nAre you sure ?", qm::vbYesNo, qm::vbNo);
        Click(Orders().ui().cmdCancelPO);
        EXPECT_EQ(Nodes(), (Lines{"1", "<New>"}));  // as it was after No
        ExpectBox("Cancel PO No. '1'\r\n\r\nAre you sure ?", qm::vbYesNo, qm::vbYes);
        ExpectBox("Cancelled Purchase Order No. '1'");
        Click(Orders().ui().cmdCancelPO);
        ChooseSupplier();
        EXPECT_EQ(Nodes(), Lines{"<New>"});
    });
    EXPECT_EQ(OrderLines().size(), 2U);
    Run("Update tblPO2001 Set PoCancelled = False");
    const auto deleteOrder = [&](const Lines& after) {
        OnOrders([&] {
            ChooseSupplier();
            ChooseOrder("1PO");
            ExpectBox("Delete PO No. '1'\r\n\r\nAre you sure ?", qm::vbYesNo + qm::vbInformation, qm::vbYes);
            if (after.empty()) ExpectBox("Deleted Purchase Order No. '1'");
            Click(Orders().ui().cmdDeletePO);
        });
        EXPECT_EQ(OrderRows(), after);
    };
    const Lines lines = OrderRows();
    Run("Delete From tblPODet2001");
    deleteOrder(lines);  // without lines the first statement finds nothing, and the order stays
    Run("Insert Into tblPODet2001 (PoDetPoNo, PoDetItemID) Values (1, 1)");
    deleteOrder({});
}

TEST_F(OrderTest, SavesAreRefusedInOrder) {
    OnOrders([&] {
        ExpectBox("Please select a supplier");
        Key(Orders(), Qt::Key_S, Qt::ControlModifier);
        ChooseSupplier();
        PickItems({"Coal"});
        Grid().SetTextMatrix(1, Col::ItemCol, "");
        ExpectBox("Please select any item to order");
        SaveOrder();
        EXPECT_EQ(std::pair(Grid().Row(), Grid().Col()), std::pair(1, int{Col::NameCol}));
        Orders().ui().tvPO->SelectedItem()->SetSelected(false);  // the node is looked at before the lines
        ExpectBox("Please select any item from PO's section to add or modify");
        SaveOrder();
        EXPECT_EQ(Orders().ui().tvPO->SelectedItem()->Text(), "<New>");
        Orders().ui().tvPO->SelectedItem()->SetSelected(false);  // the date is looked at first
        Orders().ui().dtpDate->SetValue(basic::MakeDate(2001, 3, 31));
        ExpectBox("Please select the date in Financial Year range \r\n\r\n'01-Apr-2000' to '31-Mar-2001'");
        SaveOrder();
        Run("Update Ledger_Master Set Deleted = True Where Name = 'Acme'");
        ExpectBox(
            "The selected supplier has been deleted and \r\nis available for only viewing/ modifying old "
            "transactions\r\n\r\nPlease choose another one");
        SaveOrder();
    });
    EXPECT_EQ(OrderRows(), Lines{});
}

TEST_F(OrderTest, CellsTakeOnlyWhatTheyMay) {
    OnOrders([&] {
        ChooseSupplier();
        Grid().SetFocus();
        for (const int col : {Col::RateCol, Col::QtyCol}) {  // no item yet
            Grid().Select(1, col);
            Grid().EditCell();
            EXPECT_FALSE(Grid().Editing()) << col;
        }
        Grid().Select(1, Col::NameCol);
        Key(Orders(), Qt::Key_Return);  // the column drops what is typed: no picker comes
        ExpectPick({"Coal"});
        Key(Orders(), Qt::Key_F4);
        Grid().Select(1, Col::NameCol);
        Key(Orders(), Qt::Key_Space);  // the item is chosen: no picker comes
        EnterQty(1, "-1a2.5");
        EXPECT_EQ(Grid().TextMatrix(1, Col::QtyCol), "12.5");
        Grid().Select(1, Col::QtyCol);
        Key(Orders(), Qt::Key_Delete);  // a line that was never saved goes at once
        EXPECT_EQ(Shown(), Lines{"||||"});
        Key(Orders(), Qt::Key_Delete);  // and so does the entry row: then the order is saved without lines
        EXPECT_EQ(Shown(), Lines{});
        ExpectBox("Purchase Order Saved with No.'1'");
        SaveOrder();
    });
    EXPECT_EQ(OrderRows().size(), 1U);
    EXPECT_EQ(OrderLines(), Lines{});
}

}  // namespace
