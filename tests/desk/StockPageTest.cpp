#include "inventory/ItemMaster.h"
#include "inventory/frmIssues.h"
#include "purchasing/frmPO.h"
#include "tests/desk/DeskFixture.h"

namespace {

using StockPageTest = test::DeskTest;

TEST_F(StockPageTest, LeadsFromWhatIsOverToItsMovementsAndTheirScreen) {
    FillWithSample();
    books.OpenHost();
    books.Run("Update ItemMaster2001 Set Overflow_Level = 100, IssuedQty = 30 Where Item_ID = 5");
    books.Run(
        "Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, "
        "ItemLedItemDesc, ItemLedTrnRptQty, ItemLedTrnIssQty) Values (1, 36990, 'Issue', 5, 'Box File A4', "
        "0, 30)");
    Start();
    desk->Go("stock");
    WaitForTotals("12 rows");
    Choices("stock")[1]->trigger();
    WaitForTotals("1 row,");
    EXPECT_THAT(CurrentLine(), testing::HasSubstr("Graph Book"));
    Choices("stock")[2]->trigger();
    ASSERT_TRUE(QTest::qWaitFor([this] { return CurrentLine().starts_with("5|Box File A4|"); }));
    // What the movements add up to is asked for with its column.
    EXPECT_THAT(CurrentLine(), testing::HasSubstr("|30|180||"));
    QMenu columns;
    Sheet().Columns().FillMenu(columns);
    for (QAction* const column : columns.actions())
        if (column->text() == "By Movements") column->trigger();
    ASSERT_TRUE(QTest::qWaitFor([this] { return CurrentLine().find("|30|180|180|") != std::string::npos; }))
        << CurrentLine();
    Key(Qt::Key_Return);
    EXPECT_EQ(Title(), "Box File A4");
    WaitForTotals("1 row");
    EXPECT_THAT(CurrentLine(), testing::HasSubstr("|30|180|"));
    script.Modal("frmIssues", [](forms::Form& form) {
        EXPECT_EQ(static_cast<qm::frmIssues&>(form).ui().cmbTxnNo->Text(), "1");
    });
    Key(Qt::Key_Return);
    const auto expectItem = [this] {
        script.Modal("ItemMaster", [](forms::Form& form) {
            EXPECT_EQ(static_cast<qm::ItemMaster&>(form).ui().txtItemID->Text(), "5");
        });
    };
    expectItem();
    Press({"Ctrl+M"});
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_THAT(CurrentLine(), testing::StartsWith("5|Box File A4|"));
    expectItem();
    Press({"Ctrl+M"});
}

TEST_F(StockPageTest, AnOrderOpensOnItsScreenAndOneThatWasCancelledIsToldOf) {
    FillWithSample();
    books.OpenHost();
    for (const char* order : {"7", "8"})
        books.Run("Insert Into tblPO2001 (poNumber, poSupplierID, poSupplierName, poDate) Select " +
                  std::string(order) +
                  ", Ledger_ID, Name, 36990 From Ledger_Master Where Name = 'Demo Packaging Works'");
    books.Run("Update tblPO2001 Set poCancelled = True Where poNumber = 8");
    Start();
    Press({"Alt+6", "Alt+R"});
    WaitForTotals("2 rows");
    script.Modal("frmPO", [](forms::Form& form) {
        EXPECT_EQ(static_cast<qm::frmPO&>(form).ui().tvPO->SelectedItem()->Text(), "7");
    });
    Press({"Return", "Down", "Return"});
    EXPECT_THAT(Told(),
                testing::ContainsRegex("Order 8 cannot be shown: it was cancelled.*\nWhy: .*What to do: "));
    EXPECT_THAT(CurrentLine(), testing::StartsWith("8|"));
}

}  // namespace
