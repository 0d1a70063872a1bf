#include <QMenu>

#include "inventory/frmIssues.h"
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
    // Without showing the menu: the memory platform would take it for the active window afterwards.
    const auto choose = [this](int place) {
        auto& menu = Child<QMenu>("stock");
        Q_EMIT menu.aboutToShow();
        menu.actions()[place]->trigger();
    };
    WaitForTotals("12 rows");
    choose(1);
    WaitForTotals("1 row,");
    EXPECT_THAT(CurrentLine(), testing::HasSubstr("Graph Book"));
    choose(2);
    ASSERT_TRUE(QTest::qWaitFor([this] { return CurrentLine().starts_with("5|Box File A4|"); }));
    Key(Qt::Key_Return);
    EXPECT_EQ(Title(), "Box File A4");
    WaitForTotals("1 row");
    EXPECT_THAT(CurrentLine(), testing::HasSubstr("|30|180|"));
    script.Modal("frmIssues", [](forms::Form& form) {
        EXPECT_EQ(static_cast<qm::frmIssues&>(form).ui().cmbTxnNo->Text(), "1");
    });
    Key(Qt::Key_Return);
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_THAT(CurrentLine(), testing::StartsWith("5|Box File A4|"));
}

}  // namespace
