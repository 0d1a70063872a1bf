// The stock half of the queries, worked out by hand on both stores.
#include <gmock/gmock.h>

#include "platform/ado/Errors.h"
#include "platform/basic/Dates.h"
#include "queries/Bills.h"
#include "queries/ErrorLog.h"
#include "queries/Items.h"
#include "queries/Movements.h"
#include "queries/Orders.h"
#include "tests/queries/QueryBooks.h"

using namespace testing;

namespace {

const basic::Date Second = basic::MakeDate(2001, 4, 2), Third = basic::MakeDate(2001, 4, 3);

class StockQueries : public Test {
  protected:
    StockQueries() {
        Insert(
            "ItemMaster2001 (Item_ID, Item_Name, Item_Type, Unit_Desc, Open_Stock, Unit_Price, "
            "Reorder_Level, "
            "IssuedQty, ReceivedQty, Notes, Overflow_Level)",
            {"2, 'Sand', 'Material', 'Bag', 10, 2.125, 8, 4, 1, 'wet', 20",
             "1, 'Coal', Null, Null, Null, Null, Null, Null, 3, Null, Null",
             "3, 'Oil', 'General', 'Tin', 1, 100, 0, 1, 0, Null, 2"});
        Insert(
            "tblItemLed2001 (ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemID, ItemLedPONo, "
            "ItemLedItemDesc, ItemLedTrnRptQty, ItemLedTrnIssQty, ItemLedNote, ItemLedUnitPrice, "
            "ItemLedBillNo, ItemLandingCost)",
            {"2, 36981, 'Issue', 2, 0, 'Sand', 0, 4, 'to site', 2, '0', 0",
             "3, 36981, 'Receipt', 2, 0, 'Sand', 1, Null, 'B', 2, '0', 2.5",
             "1, 36980, 'Receipt', 1, 7, 'Coal', 3, Null, 'by cart', 90, 'b/1', 85.5",
             "4, 36982, 'Return', 2, 0, 'Sand', 2, 9, '', 2, '0', 0"});
        Insert("tblPO2001 (poNumber, poSupplierID, PoDate, poSupplierName, PoDlvTerm, poCancelled)",
               {"8, 17, 36981, 'Acme', 'at once', True", "7, 17, 36980, 'Acme', Null, False",
                "9, 18, 36982, 'Bolt', 'later', False"});
        Insert("tblPODet2001 (PoDetPoNo, PoDetItemID, PoDetItemDesc, PoDetQtyOrder, PoDetQtyRecd)",
               {"7, 1, 'Coal', 10, 3", "8, 1, 'Coal', 5, Null", "7, 2, 'Sand', 4.5, Null"});
        Insert(
            "tblBills2001 (BillID, BillTxnID, BillVchrNo, ISPoBill, InstrumentID, BillDiscount, BillTaxRate, "
            "BillOtherCharges)",
            {"'b/1', 1, 5, True, 7, 10, 5, 20", "'b/2', 3, 6, False, 0, 0, 0, 0"});
        books.Post(5, 17, 36980, -232.5, "Journal", "coal");
        books.Post(5, 19, 36980, 232.5, "Journal", "coal");
        books.Run("Update tb_Ledger2001 Set LedgerName = 'Acme' Where LedgerCode = 17");
        books.Run("Update tb_Ledger2001 Set LedgerName = 'Bought' Where LedgerCode = 19");
        Insert("tblError (frmName, ErrNumber, ErrDesc, ErrSource, ErrDate, ErrTime)",
               {"'frmPO', 13, 'Type mismatch', 'basic', '03/04/2001', '10:00:00'",
                "'Class-ClQm', 0, '', '', 'soon', ''"});
    }

    void Insert(const std::string& fields, const std::vector<std::string>& rows) {
        for (const std::string& row : rows) books.Run("Insert Into " + fields + " Values (" + row + ")");
    }

    test::QueryBooks books;
};

TEST_F(StockQueries, TellWhatTheTablesHold) {
    queries::Reading reading(books.DataPath());
    EXPECT_THAT(test::LinesOf(*queries::ItemsSheet(reading)),
                ElementsAre("1|Coal|||-|3|-|3|3|-|0|-|False|-",
                            "2|Sand|Material|Bag|10|1|4|7|9|2.125|14.875|8|True|20",
                            "3|Oil|General|Tin|1|0|1|0|1|100|0|0|False|2"));
    EXPECT_THAT(test::LinesOf(*queries::ListMovements(reading)),
                ElementsAre("01/04/2001|1|Receipt|1|Coal|3|-|3|90|85.5|7|b/1|by cart",
                            "02/04/2001|3|Receipt|2|Sand|1|-|11|2|2.5|-||B",
                            "02/04/2001|2|Issue|2|Sand|0|4|7|2|-|-||to site",
                            "03/04/2001|4|Return|2|Sand|2|9|9|2|-|-||"));
    EXPECT_THAT(
        test::LinesOf(*queries::OrdersSheet(reading)),
        ElementsAre("7|01/04/2001|Acme|1|Coal|10|3|7|False|", "7|01/04/2001|Acme|2|Sand|4.5|0|4.5|False|",
                    "8|02/04/2001|Acme|1|Coal|5|0|0|True|at once", "9|03/04/2001|Bolt|-||0|0|0|False|later"));
    EXPECT_THAT(
        test::LinesOf(*queries::BillsSheet(reading)),
        ElementsAre("01/04/2001|b/1|Acme|Bought|1|7|5|270|10|5|20|232.5|coal", "-|b/2|||3|-|6|2|0|0|0|0|"));
    EXPECT_THAT(test::LinesOf(*queries::ErrorLogSheet(reading)),
                ElementsAre("03/04/2001|10:00:00|frmPO|13|Type mismatch|basic", "-||Class-ClQm|0||"));
}

// What is left out still moves the balances, and what lies before the range by both its quantities.
TEST_F(StockQueries, AreNarrowed) {
    queries::Reading reading(books.DataPath());
    const auto numbers = [&](const queries::MovementFilter& filter) {
        std::vector<std::string> lines;
        const queries::MovementLines movements(reading, filter);
        for (const auto& row : movements.Page(0, movements.Count()))
            lines.push_back(std::to_string(row.number) + ":" + basic::NumberText(row.balance));
        return lines;
    };
    EXPECT_THAT(numbers({.days = {Third, {}}}), ElementsAre("4:9"));
    EXPECT_THAT(numbers({.days = {Second, Second}, .type = "issue"}), ElementsAre("2:7"));
    EXPECT_THAT(numbers({.item = 1}), ElementsAre("1:3"));
    EXPECT_THAT(numbers({.words = "SITE san"}), ElementsAre("2:7"));
    const auto sheet = queries::ListMovements(reading, {.item = 2});
    {
        queries::Reading other(books.DataPath());
        sheet->ReadBy(other);
        EXPECT_EQ(sheet->Source().PlaceOf(sheet->Typed(2).key), 2u);
        books.Run("Delete From tblItemLed2001 Where ItemLedTrnNo = 2");
        EXPECT_EQ(test::LinesOf(*queries::ListMovements(other, {.item = 2})).size(), 2u);
        EXPECT_EQ(sheet->Source().Page(1, 1).front().key, 0);  // gone; its balance stands
        EXPECT_EQ(sheet->Source().Page(1, 2).back().balance, 9);
    }
    books.Run("Update tblItemLed2001 Set ItemLedTrnDate = 36979 Where ItemLedTrnNo = 4");
    queries::Reading again(books.DataPath());
    EXPECT_EQ(queries::MovementLines(again, {.days = {Second, Second}}).Page(0, 1).front().balance,
              10 + 2 - 9 + 1);

    const auto found = [](const auto& rows) { return rows.size(); };
    EXPECT_EQ(found(queries::Items(reading, "wet")), 1u);
    EXPECT_EQ(found(queries::Orders(reading, {.days = {{}, Second}, .supplier = 17, .words = "coal"})), 2u);
    EXPECT_EQ(found(queries::Orders(reading, {.supplier = 18})), 1u);
    EXPECT_EQ(found(queries::Bills(reading, {.days = {Second, {}}})), 0u);
    EXPECT_EQ(found(queries::Bills(reading, {.supplier = 17, .words = "bought COAL"})), 1u);
    EXPECT_EQ(found(queries::ErrorLog(reading, {Second, Third})), 1u);
    EXPECT_EQ(found(queries::ErrorLog(reading, {}, "clqm")), 1u);
}

TEST_F(StockQueries, SayThatAYearHasNoStock) {
    books.Run("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values ('2002-2003', False)");
    queries::Reading reading(books.DataPath(), "2002");
    EXPECT_EQ(test::TextOfError([&] { queries::Items(reading); }),
              "The year 2002 was made without stock tables.");
}

}  // namespace
