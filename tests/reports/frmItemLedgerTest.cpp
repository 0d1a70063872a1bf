// The stock ledger as a text, worked out by hand: quantities by adding each row to the opening, cut notes by
// counting their letters.
#include <gmock/gmock.h>

#include "reports/frmItemLedger.h"
#include "tests/reports/ReportScreens.h"
#include "tests/support/Golden.h"

using namespace testing;

namespace {

class ItemLedgerTest : public ReportScreensTest {
  protected:
    ~ItemLedgerTest() override { screen.Unload(); }

    static void AddItem(int id, const std::string& name, const std::string& stock) {
        Run("Insert Into ItemMaster2001 (Item_ID, Item_Name, Open_Stock) Values (" + std::to_string(id) +
            ", '" + name + "', " + stock + ")");
    }
    // A movement; quantities and note as a statement writes them.
    static void Move(int item, int day, const std::string& type, const std::string& in,
                     const std::string& out, const std::string& note = "'n'") {
        Run("Insert Into tblItemLed2001 (ItemLedTrnNo, ItemLedItemId, ItemLedTrnDate, ItemLedTrnType, "
            "ItemLedTrnRptQty, ItemLedTrnIssQty, ItemLandingCost, ItemLedUnitPrice, ItemLedNote) Values "
            "(1, " +
            std::to_string(item) + ", " + Day(day) + ", '" + type + "', " + in + ", " + out + ", 2.5, 2, " +
            note + ")");
    }
    void OpenScreen() {
        screen.Show();
        BringToFront(screen);
    }
    void Choose() {
        OpenScreen();
        Click(screen.ui().ucItemLedger->ui().optAll);
    }
    std::string StockLedger() {
        Choose();
        return Printed([&] { Click(screen.ui().ucItemLedger->ui().cmdOk); });
    }

    qm::frmItemLedger& screen = forms::Default<qm::frmItemLedger>();
};

// Pens have 5 + 10 - 3 = 12 before the range. Ink has no stock of its own: -2 by an earlier issue, and as
// Quills it goes on from the Pens' -3 and the 6 of Pins, which came before the range only and so is not
// printed. The balance takes of a row the quantity of its type.
TEST_F(ItemLedgerTest, QuantitiesRunOnFromItemToItem) {
    AddItem(7, "Pens", "5");
    AddItem(8, "Ink", "Null");
    AddItem(9, "Pins", "Null");
    Move(7, -1, "Receipt", "10", "0");
    Move(7, 0, "Issue", "0", "3");
    Move(7, 6, "Issue", "2", "20");
    Move(7, 6, "Receipt", "4", "Null");
    Move(7, 7, "Return", "1", "0", "'<i>back & forth'");
    Move(8, -1, "Issue", "Null", "2");
    Move(9, -1, "Receipt", "6", "Null");
    Move(8, 2, "Issue", "Null", "1.5");
    test::ExpectGolden("stock-ledger.html", StockLedger());
    EXPECT_FALSE(screen.Loaded());
    Run("Update ItemMaster2001 Set Item_Name = 'Quills' Where Item_ID = 8");
    EXPECT_THAT(
        StockLedger(),
        ContainsRegex(
            "<b>Item: Quills</b>.*Opening Balance</td><td></td><td></td><td align = 'right'>1.00</td>"));
}

// Of 45 letters, 46, and so on: what goes on begins after the 45th, and a third row after the 90th.
TEST_F(ItemLedgerTest, LongNotesGoOnInOverlappingRows) {
    AddItem(1, "Pens", "0");
    int day = 0;
    for (const std::size_t length : {45, 46, 90, 91, 200})
        Move(1, ++day, "Receipt", "1", "0", "'" + Letters(length) + "'");
    test::ExpectGolden("long-notes.html", StockLedger());
}

TEST_F(ItemLedgerTest, ANullNoteAndANullReceiptFailAndShortSupplyDoesNothing) {
    AddItem(1, "Pens", "0");
    const struct {
        const char *type, *in, *note;
    } cases[] = {{"Receipt", "1", "Null"}, {"Receipt", "Null", "'n'"}};
    for (const auto& c : cases) {
        Run("Delete From tblItemLed2001");
        Move(1, 3, c.type, c.in, "0", c.note);
        Choose();
        ExpectBox("Run-time error '94':\n\nInvalid use of Null", 0);
        Click(screen.ui().ucItemLedger->ui().cmdOk);
        EXPECT_TRUE(screen.Visible());
        screen.Unload();
    }
    OpenScreen();
    Click(screen.ui().optSumm);
    Click(screen.ui().ucItemLedger->ui().optAll);
    Click(screen.ui().ucItemLedger->ui().cmdOk);
    EXPECT_FALSE(screen.ui().ucItemLedger->ui().cmdOk->Enabled());
    EXPECT_TRUE(screen.Visible());
    Click(screen.ui().ucItemLedger->ui().optAll);
    EXPECT_TRUE(screen.ui().ucItemLedger->ui().cmdOk->Enabled());
}

// The from date goes by the calendar year of today, so before April it lies beyond today and the year.
TEST_F(ItemLedgerTest, DatesAreThoseOfTheCalendarYear) {
    basic::Clock::Set(basic::MakeDate(2002, 2, 5));
    OpenScreen();
    EXPECT_EQ(screen.ui().dtpDateFrom->Value(), basic::MakeDate(2002, 4, 1));
    EXPECT_EQ(screen.ui().dtpDateUpTo->Value(), basic::MakeDate(2002, 2, 5));
    screen.ui().dtpDateFrom->SetFocus();
    ExpectBox("Please select the date in Financial Year range \r\n\r\n'01-Apr-2001' to '31-Mar-2002'");
    screen.ui().ucItemLedger->SetFocus();
    EXPECT_EQ(screen.ui().dtpDateFrom->Value(), basic::MakeDate(2001, 4, 1));
    EXPECT_EQ(Active(screen), "dtpDateFrom");
}

}  // namespace
