#include <atomic>
#include <thread>

#include <gmock/gmock.h>

#include "platform/ado/Errors.h"
#include "queries/LedgerSums.h"
#include "queries/Ledgers.h"
#include "tests/queries/QueryBooks.h"

using namespace testing;

namespace {

// What the rows come to and what was posted are told apart; a ledger that nothing was posted to has no
// totals.
TEST(Ledgers, RowsAndRunningTotalsAreKeptApart) {
    test::QueryBooks books;
    const int owner = books.AddLedger("owner", "Capital", 1000, "C"),
              cash = books.AddLedger("Cash", "Cash In Hand", 10);
    books.Post(1, cash, 36980, 0.1);
    books.Post(1, cash, 37344, 0.2);
    books.Post(1, owner, 36981, -0.3);
    books.Run(
        "Update Ledger_Details Set LedDetDRTxnTot = 7, LedDetCRTxnTot = 0, Closing_Bal = 8 Where Ledger_ID "
        "= " +
        std::to_string(cash));
    books.Run("Update Ledger_Master Set Deleted = True Where Ledger_ID = " + std::to_string(owner));
    queries::Reading reading(books.DataPath());
    const auto sheet = queries::LedgersSheet(reading);
    EXPECT_EQ(sheet->Title(), "Ledgers, 2001-2002");
    EXPECT_THAT(test::LinesOf(*sheet), ElementsAre("Cash|Cash In Hand|10|0.3|0|10.3|7|0|8|False",
                                                   "owner|Capital|-1000|0|0.3|-1000.3|-|-|0|True"));
    EXPECT_EQ(sheet->Typed()[0].id, cash);
}

// Another program posts between two questions of one answer: neither sees it; the next answer does.
TEST(Reading, OneMomentHoldsThoughOthersWrite) {
    test::QueryBooks books;
    const int cash = books.AddLedger("Cash", "Cash In Hand");
    const std::string place = books.DataPath();
    queries::Reading reading(place), later(place);
    ado::Connection writer;
    writer.Properties("Data Source") = place + "QmAccount.mdb";
    writer.Properties("Jet OLEDB:Database Password") = "quintel";
    writer.Open();
    EXPECT_FALSE(reading.ChangedByOthers());
    {
        const queries::Reading::Moment moment(reading);
        EXPECT_EQ(queries::Ledgers(reading).front().debit, 0);
        writer.Execute("Insert Into tb_Ledger2001 (LedgerCode, LedgerTxnDate, LedgerDrAmt) Values (" +
                       std::to_string(cash) + ", 36980, 5)");
        EXPECT_EQ(queries::Ledgers(reading).front().debit, 0);
        EXPECT_EQ(queries::Ledgers(later).front().debit, 5);
    }
    EXPECT_TRUE(reading.ChangedByOthers());
    EXPECT_EQ(queries::Ledgers(reading).front().debit, 5);
    EXPECT_EQ(test::ErrorOf([&] { reading.Select("Delete From tb_Ledger2001"); }), ado::error::BadArgument);
    for (const char* write : {"Delete From tb_Ledger2001", "Select * Into tb_Other From tblsysLedgerstr"})
        EXPECT_EQ(test::ErrorOf([&] { reading.Connection()->Execute(write); }), ado::error::ReadOnly)
            << write;
    EXPECT_EQ(queries::Ledgers(reading).front().debit, 5);
}

// From another thread while a long question runs; the next one is answered.
TEST(Reading, ALongQuestionIsCancelled) {
    test::QueryBooks books;
    qm::Conn().BeginTrans();
    for (int row = 0; row < 600; ++row) books.Post(row, 1, 36980, 1);
    qm::Conn().CommitTrans();
    queries::Reading reading(books.DataPath());
    const std::string endless =
        "Select Sum(a.LedgerDrAmt) As Total From tb_Ledger2001 As a, tb_Ledger2001 As b, tb_Ledger2001 As c";
    std::atomic<bool> ended{false};
    std::thread other([&] {
        while (!ended) reading.Cancel();
    });
    EXPECT_EQ(test::ErrorOf([&] { reading.Connection()->Execute(endless); }), ado::error::Cancelled);
    ended = true;
    other.join();
    // What a server was told last may come late.
    test::ErrorOf(
        [&] { reading.Connection()->Execute("Select Max(LedgerCode) As High From tb_Ledger2001"); });
    EXPECT_EQ(test::ErrorOf([&] { queries::Ledgers(reading); }), ado::error::Cancelled);
    reading.GoOn();
    EXPECT_EQ(queries::LedgerSums(reading).Of({}).at(1).debit, 600);
}

// One walk for several ranges gives each the digits that a walk of its own gives.
TEST(LedgerSums, OfSeveralRangesAreThoseOfEach) {
    test::QueryBooks books;
    const int cash = books.AddLedger("Cash", "Cash In Hand"), sold = books.AddLedger("Sold", "Sales");
    for (int row = 0; row < 60; ++row) books.Post(row, row % 3 ? cash : sold, 36980 + row, 0.1 * row - 2.3);
    books.Run("Update tb_Ledger2001 Set LedgerTxnDate = Null Where LedgerTrnNo = 5");
    queries::Reading reading(books.DataPath());
    const std::vector<queries::Range> ranges{{},
                                             {{}, queries::DateOf(37000)},
                                             {queries::DateOf(36990), {}},
                                             {queries::DateOf(36991), queries::DateOf(37020)}};
    queries::LedgerSums together(reading);
    together.Read(ranges);
    for (const queries::Range& range : ranges) {
        queries::LedgerSums alone(reading);
        for (const int ledger : {cash, sold}) {
            const queries::Sides a = queries::SidesOf(together.Of(range), ledger),
                                 b = queries::SidesOf(alone.Of(range), ledger);
            EXPECT_EQ(a.debit, b.debit) << queries::TitleOf(reading, range);
            EXPECT_EQ(a.credit, b.credit) << queries::TitleOf(reading, range);
        }
    }
}

TEST(Reading, KnowsItsYearAndRefusesAnother) {
    test::QueryBooks books;
    books.Run("Insert Into Fnncl_Yr_Mstr (Fnncl_Yr, Crrnt_Yr_Flg) Values ('2002-2003', False)");
    const std::string place = books.DataPath();
    queries::Reading now(place), next(place, "2002");
    EXPECT_EQ(now.LongYear(), "2001-2002");
    EXPECT_EQ(queries::DayOf(next.FirstDay()), 37345);
    EXPECT_EQ(queries::DayOf(now.LastDay()), 37344);
    EXPECT_THAT(now.Years(), ElementsAre("2001", "2002"));
    EXPECT_EQ(test::TextOfError([&] { queries::Reading(place, "1999"); }), "The books know no year '1999'.");
    books.Run("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = False");
    EXPECT_EQ(test::TextOfError([&] { queries::Reading(books.DataPath()); }),
              "The books have no current year yet.");
}

}  // namespace
