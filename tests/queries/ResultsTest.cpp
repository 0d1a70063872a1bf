// Ranges that no report shows: worked out by hand.
#include <gmock/gmock.h>

#include "platform/basic/Dates.h"
#include "queries/GroupTree.h"
#include "queries/LedgerLines.h"
#include "queries/Results.h"
#include "queries/TrialBalance.h"
#include "tests/queries/QueryBooks.h"

using namespace testing;

namespace {

// Stock of 50 at first; 30 bought and 100 sold in April, 20 bought and 60 sold in May.
TEST(Results, OfALaterRangeHoldWhatWasPostedWithinIt) {
    test::QueryBooks books;
    const int owner = books.AddLedger("Owner", "Capital", 50, "C");
    const int stock = books.AddLedger("Stock", "Stock in Hand", 50), sold = books.AddLedger("Sold", "Sales");
    const int bought = books.AddLedger("Bought", "Purchase"), cash = books.AddLedger("Cash", "Cash In Hand");
    for (const auto& [day, purchase, sale] : {std::tuple{36990, 30.0, 100.0}, {37020, 20.0, 60.0}}) {
        books.Post(1, bought, day, purchase), books.Post(1, cash, day, -purchase);
        books.Post(2, cash, day, sale), books.Post(2, sold, day, -sale);
    }
    books.Post(3, owner, 37021, 5), books.Post(3, cash, 37021, -5);
    queries::Reading reading(books.DataPath());
    const queries::Range may{.from = basic::MakeDate(2001, 5, 1), .upto = basic::MakeDate(2001, 5, 31)};
    const auto sheet = queries::ResultsSheet(reading, may);
    EXPECT_EQ(sheet->Title(), "Final results, 01-May-2001 to 31-May-2001");
    EXPECT_THAT(
        test::LinesOf(*sheet),
        ElementsAre("Trading Account|-|-", "  Purchase|20|-", "    Bought|20|-", "  Sales|-|60",
                    "    Sold|-|60", "  Gross Profit|40|-", "  Total|60|60", "Profit & Loss Account|-|-",
                    "  Gross Profit B/F|-|40", "  Net Profit|40|-", "  Total|40|40", "Balance Sheet|-|-",
                    "  Capital|-|45", "    Owner|-|45", "  Cash In Hand|105|-", "    Cash|105|-",
                    "  Net Profit Trf From P & L|-|60", "  Total|105|105"));
    EXPECT_EQ(sheet->Typed()[4].ledger, sold);
    const auto tree = test::LinesOf(*queries::GroupTreeSheet(reading, may));
    EXPECT_THAT(tree, Contains("Stock in Hand|50|0|0|50"));
    EXPECT_THAT(tree,
                IsSupersetOf({"Cash In Hand|70|60|25|105", "  Cash|70|60|25|105", "Suppliers|0|0|0|0"}));
    EXPECT_EQ(tree.size(), 16u + 5u);
    double sum = 0;
    for (const queries::TrialRow& row : queries::TrialBalance(reading, may)) sum += *row.closing;
    EXPECT_EQ(sum, 0);
    EXPECT_EQ(queries::LedgerLines(reading, stock, may).Page(0, 9).size(), 1u);
}

// What was bought and sold alike leaves nought; a difference stands on the shorter side.
TEST(Results, WithoutTradingOnlyTheBalanceSheetIsGiven) {
    test::QueryBooks books;
    books.AddLedger("Bank", "Bank", 12.5);
    const int lost = books.AddLedger("Lost", "Capital", 4);
    books.Run("Update Ledger_Master Set PrimaryGrp = 'Nowhere' Where Ledger_ID = " + std::to_string(lost));
    queries::Reading reading(books.DataPath());
    EXPECT_THAT(test::LinesOf(*queries::ResultsSheet(reading)),
                ElementsAre("Balance Sheet|-|-", "  Bank|12.5|-", "    Bank|12.5|-",
                            "  Difference In Opening|-|12.5", "  Total|12.5|12.5"));
    EXPECT_EQ(test::LinesOf(*queries::GroupTreeSheet(reading)).back(), "  Lost|4|0|0|4");
}

}  // namespace
