#include <QLineEdit>
#include <future>

#include "desk/Books.h"
#include "inventory/ItemMaster.h"
#include "inventory/frmReceipt.h"
#include "purchasing/frmPO.h"
#include "tests/desk/DeskFixture.h"
#include "vouchers/frmVoucher.h"

namespace {

using FinderTest = test::DeskTest;

TEST_F(FinderTest, TheSearchFieldLeadsToAScreenAndGivesTheFocusBack) {
    Start();
    QWidget* const before = desk->focusWidget();
    Key(Qt::Key_K, Qt::ControlModifier);
    Type("purch");
    script.Modal("frmPO");
    Key(Qt::Key_Return);
    EXPECT_EQ(script.LeftOver(), 0u);
    Key(Qt::Key_K, Qt::ControlModifier);
    Type("zz");
    Key(Qt::Key_Escape);
    EXPECT_EQ(desk->focusWidget(), before);
    EXPECT_EQ(desk->findChild<QLineEdit*>("search")->text(), "");
}

// A receipt against an order belongs to the order's screen.
TEST_F(FinderTest, EachResultOfTheSearchOpensItsOwnRecord) {
    FillWithSample();
    books.OpenHost();
    books.Run(
        "Insert Into tblPO2001 (poNumber, poSupplierID, poSupplierName, PoDate) Select 77, Ledger_ID, Name, "
        "36990 From Ledger_Master Where Name = 'Sample Stationery Depot'");
    books.Run("Insert Into tblPODet2001 (PoDetPoNo, PoDetItemID, PoDetQtyOrder) Values (77, 3, 5)");
    books.Run(
        "Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, "
        "ItemLedPONo, ItemLedTrnRptQty) Values (4, 36990, 'Receipt', 3, 0, 7)");
    for (const char* bill : {"'D/9', 4, 9, False, 0", "'D/10', 5, 9, True, 77"})
        books.Run(
            "Insert Into tblBills2001 (BillID, BillTxnID, BillVchrNo, ISPoBill, InstrumentID) Values (" +
            std::string(bill) + ")");
    Start();
    const auto supplier = [](forms::Form& form) {
        auto& order = static_cast<qm::frmPO&>(form).ui();
        return order.cmbSuppliers->Text() + " " + order.tvPO->SelectedItem()->Key();
    };
    const auto voucher = [](forms::Form& form) {
        return static_cast<qm::frmVoucher&>(form).ui().txtVoucherNo->Text();
    };
    const struct {
        const char *Words, *Form;
        std::function<std::string(forms::Form&)> Read;
        const char* Shown;
    } records[] = {
        {"graph", "ItemMaster",
         [](forms::Form& form) { return static_cast<qm::ItemMaster&>(form).ui().txtItemName->Text(); },
         "Graph Book 100 Leaves"},
        {"77", "frmPO", supplier, "Sample Stationery Depot 77PO"},
        {"D/9", "frmReceipt",
         [](forms::Form& form) { return static_cast<qm::frmReceipt&>(form).ui().cmbReceipt->Text(); }, "4"},
        {"D/10", "frmPO", supplier, "Sample Stationery Depot 77PO"},
        {"14", "frmVoucher", voucher, "14"},
        {"festival season", "frmVoucher", voucher, "25"},
    };
    for (const auto& each : records) {
        SCOPED_TRACE(each.Words);
        std::string shown;
        script.Modal(each.Form, [&](forms::Form& form) { shown = each.Read(form); });
        Press({"Ctrl+K", std::string("'") + each.Words, "Return"});
        EXPECT_TRUE(QTest::qWaitFor([&] { return script.LeftOver() == 0; })) << "not opened";
        EXPECT_EQ(shown, each.Shown);
    }
}

TEST_F(FinderTest, TheSearchFieldLeadsToALedgersStatementThoughEnterComesBeforeTheAnswer) {
    FillWithSample();
    Start();
    Key(Qt::Key_K, Qt::ControlModifier);
    Type("paper mart");
    Key(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Title() == "Example Paper Mart"; })) << Title();
    Key(Qt::Key_Escape);
    EXPECT_EQ(Title(), "Overview");
}

TEST_F(FinderTest, WhatTheSearchFindsLateOpensOverNothingElse) {
    FillWithSample();
    Start();
    std::promise<void> answer;
    desk->Books().Background().Start(
        *desk, [&](queries::Reading&, desk::Worker::Job&) { answer.get_future().wait(); },
        [](std::exception_ptr) {});
    Press({"Ctrl+K", "'paper mart"});
    Key(Qt::Key_Return);
    Key(Qt::Key_2, Qt::AltModifier);
    answer.set_value();
    EXPECT_FALSE(QTest::qWaitFor([&] { return Title() != "Vouchers"; }, 500)) << Title();
}

}  // namespace
