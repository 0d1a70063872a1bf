// The stock ledger as a text, worked out by hand: quantities by adding each row to the opening, cut notes by
// counting their letters.
#include <gmock/gmock.h>

#include "reports/frmItemLedger.h"
#include "tests/reports/ReportScreens.h"

using namespace testing;

namespace {

std::string Right(const std::string& text) {
    return "<td align = 'right'>" + text + "</td>";
}
std::string Row(const std::string& date, const std::string& note, const std::string& type,
                const std::string& cost, const std::string& in, const std::string& out,
                const std::string& balance) {
    return "<tr><td>" + date + "</td><td>" + note + "</td><td>" + type + "</td>" + Right(cost) + Right(in) +
           Right(out) + Right(balance) + "</tr>";
}
std::string Begin(const std::string& id, const std::string& name, const std::string& price,
                  const std::string& opening) {
    return "<tr><td width = '100%' colspan = '2'><b>Item Code: " + id +
           "</b></td><td width = '100%' colspan = '3'><b>Item: " + name +
           "</b></td><td width = '100%' colspan = '3'><b>Unit Price: " + price +
           "</b></td></tr><tr><td width='100%' colspan = '8'><hr></td></tr>"
           "<tr><td width = '10%' height='31'><b>Date</b></td><td width = '25%' "
           "height='31'><b>Particulars</b></td><td width = '10%' height='31'><b>TrnType</b></td>"
           "<td width = '15%' height='31' align = 'right'><b>Landing Cost</b></td>"
           "<td width = '10%' height='31' align = 'right'><b>Receipt Qty.</b></td>"
           "<td width = '10%' height='31' align = 'right'><b>Issue Qty.</b></td>"
           "<td width = '10%' height='31' align = 'right'><b>Balance Qty.</b></td></tr>"
           "<tr><td width='100%' height='1' colspan='8'><hr></td></tr>"
           "<tr><td>01-Apr-2001</td><td>Opening Balance</td><td></td><td></td>" +
           Right(opening) + "<td></td></tr>";
}
std::string Close(const std::string& in, const std::string& out, const std::string& balance) {
    return "<tr><td></td><td></td><td></td><td></td><td colspan = '4' width = '100%''><hr></td></tr>"
           "<tr><td></td><td></td><td></td><td></td><td align = 'right'>" +
           in + "<td align = 'right'>" + out + "</td><td width = '100%' align = 'right'>" + balance +
           "</td></tr><tr><td></td><td></td><td></td><td></td><td colspan = '4' width = '100%'><hr></td></tr>"
           "<tr><td colspan = '8' width = '100%'><hr></td></tr>";
}

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
    EXPECT_EQ(StockLedger(),
              "<html><head><title></title></head><body><table border = '0' width='100%' style = 'font size = "
              "12' cellspacing = '0' cellpadding =0 ><tr><td width='100%' colspan='7' height='27'><p "
              "align='center'><font size='5'><b>Stock Ledger</b></font></td></tr><tr><td width='100%' "
              "colspan='7'><p align='center'><font size='4'><b>(01-Apr-2001 To "
              "30-Apr-2001)</b></font></p><hr></td></tr>" +
                  Begin("8", "Ink", "2", "-2.00") +
                  Row("02-Apr-2001", "n", "Issue", "", "", "1.50", "-3.50") +
                  Close("-2.00", "1.50", "-3.50") + Begin("7", "Pens", "2", "12.00") +
                  Row("06-Apr-2001", "n", "Receipt", "2.5", "4.00", "", "16.00") +
                  Row("06-Apr-2001", "n", "Issue", "", "2.00", "20.00", "-4.00") +
                  Row("07-Apr-2001", "<i>back & forth", "Return", "", "1.00", "0.00", "-3.00") +
                  Close("19.00", "20.00", "-3.00") + "</table></body></html>");
    EXPECT_FALSE(screen.Loaded());
    Run("Update ItemMaster2001 Set Item_Name = 'Quills' Where Item_ID = 8");
    EXPECT_THAT(StockLedger(), HasSubstr(Begin("8", "Quills", "2", "1.00")));
}

TEST_F(ItemLedgerTest, LongNotesGoOnInOverlappingRows) {
    const auto text = Letters;
    const struct {
        std::size_t length;
        std::string rows;
    } cases[] = {
        {45, ""},
        {46, "<tr><td>t</td></tr>"},
        {90, "<tr><td>" + text(90).substr(45) + "</td></tr>"},
        {91, "<tr><td>" + text(91).substr(45) + "</td></tr><tr></td>m</td></tr>"},
        {200,
         "<tr><td>" + text(200).substr(45, 90) + "</td></tr><tr></td>" + text(200).substr(90) + "</td></tr>"},
    };
    AddItem(1, "Pens", "0");
    std::string rows;
    int day = 0;
    for (const auto& c : cases) {
        Move(1, ++day, "Receipt", "1", "0", "'" + text(c.length) + "'");
        rows += Row("0" + std::to_string(day) + "-Apr-2001", text(45), "Receipt", "2.5", "1.00", "0.00",
                    std::to_string(day) + ".00") +
                c.rows;
    }
    EXPECT_THAT(StockLedger(), HasSubstr(rows + Close("5.00", "0.00", "5.00")));
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
    screen.ui().dtpDateUpTo->SetFocus();
    screen.ui().dtpDateUpTo->SetValue(basic::MakeDate(2002, 4, 1));
    ExpectBox("Please select the date in Financial Year range \r\n\r\n'01-Apr-2001' to '31-Mar-2002'");
    screen.ui().ucItemLedger->SetFocus();
    EXPECT_EQ(screen.ui().dtpDateUpTo->Value(), basic::MakeDate(2002, 3, 31));
}

}  // namespace
