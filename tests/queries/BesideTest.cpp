#include <gmock/gmock.h>

#include "platform/basic/Dates.h"
#include "queries/Beside.h"
#include "tests/queries/QueryBooks.h"

using namespace testing;
using queries::Statement;

namespace {

const queries::Step Quietly = [](std::size_t, std::size_t) {};

// A profit in April, a loss in May with a ledger of its own, nothing in June.
TEST(Beside, ByMonthResultsAddUpAndBalancesStandAtTheirEnds) {
    test::QueryBooks books;
    const int bought = books.AddLedger("Bought", "Purchase"), sold = books.AddLedger("Sold", "Sales");
    const int cash = books.AddLedger("Cash", "Cash In Hand", 50),
              freight = books.AddLedger("Freight", "Expenditure(Direct)");
    books.AddLedger("Owner", "Capital", 50, "C");
    for (const auto& [ledger, day, amount] : {std::tuple{bought, 36990, 30.0},
                                              {sold, 36991, -100.0},
                                              {bought, 37020, 20.0},
                                              {freight, 37021, 5.5}}) {
        books.Post(1, ledger, day, amount), books.Post(1, cash, day, -amount);
    }
    queries::Reading reading(books.DataPath());
    const queries::Range quarter{.from = {}, .upto = basic::MakeDate(2001, 6, 30)};
    const auto trading = queries::ByMonth(reading, Statement::Trading, quarter, Quietly);
    EXPECT_EQ(trading->Columns()[2].caption, "May-2001");
    EXPECT_THAT(
        test::LinesOf(*trading),
        ElementsAre("Purchase|-30|-20|-|-50", "  Bought|-30|-20|-|-50", "Expenditure(Direct)|-|-5.5|-|-5.5",
                    "  Freight|-|-5.5|-|-5.5", "Sales|100|-|-|100", "  Sold|100|-|-|100",
                    "Gross Profit or Loss|70|-25.5|-|44.5"));
    EXPECT_EQ(trading->Typed()[1].ledger, bought);
    EXPECT_THAT(test::LinesOf(*queries::ByMonth(reading, Statement::BalanceSheet, quarter, Quietly)),
                ElementsAre("Capital|-50|-50|-50", "  Owner|-50|-50|-50", "Cash In Hand|120|94.5|94.5",
                            "  Cash|120|94.5|94.5", "Net Profit Trf From P & L|-70|-44.5|-44.5"));
    EXPECT_THAT(test::LinesOf(*queries::ByMonth(reading, {}, quarter, Quietly)),
                IsSupersetOf({"  Cash|120|94.5|94.5", "  Sold|-100|-100|-100", "  Freight|0|5.5|5.5"}));
    int steps = 0;
    EXPECT_THROW(queries::ByMonth(reading, Statement::Trading, quarter,
                                  [&](std::size_t, std::size_t) {
                                      if (++steps == 2) throw 1;
                                  }),
                 int);
}

TEST(Beside, TheYearBeforeHasTheSameDays) {
    test::QueryBooks books;
    const int sold = books.AddLedger("Sold", "Sales"), cash = books.AddLedger("Cash", "Cash In Hand");
    for (const auto& [day, amount] : {std::pair{36990, 40.0}, {37020, 25.25}})
        books.Post(1, sold, day, -amount), books.Post(1, cash, day, amount);
    books.Run("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values ('2002-2003', False)");
    books.Run("Select * Into tb_Ledger2002 From tblsysLedgerstr");
    books.Run(
        "Insert Into Ledger_Details (Ledger_ID, Fnncl_Yr, Opening_Bal) Select Ledger_ID, '2002' As Fnncl_Yr, "
        "Opening_Bal From Ledger_Details");
    queries::Reading reading(books.DataPath(), "2002");
    EXPECT_EQ(queries::LastYearOf(reading), "2001");
    const queries::Range april{.from = {}, .upto = basic::MakeDate(2002, 4, 30)};
    const auto sheet =
        queries::BesideLastYear(reading, Statement::Trading, april, queries::TrialBy::Report, Quietly);
    EXPECT_EQ(sheet->Columns()[2].caption, "2001-2002");
    EXPECT_THAT(test::LinesOf(*sheet),
                ElementsAre("Sales|-|40|-40", "  Sold|-|40|-40", "Gross Profit|-|40|-40"));
    queries::Reading first(books.DataPath(), "2001");
    EXPECT_EQ(queries::LastYearOf(first), std::nullopt);
    const queries::Range leap =
        queries::YearBefore(first, {basic::MakeDate(2004, 2, 29), basic::MakeDate(2005, 2, 28)});
    EXPECT_EQ(*leap.from, basic::MakeDate(2003, 2, 28));
    EXPECT_EQ(*leap.upto, basic::MakeDate(2004, 2, 29));
}

}  // namespace
