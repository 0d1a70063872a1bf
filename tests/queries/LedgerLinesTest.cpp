#include <gmock/gmock.h>

#include "platform/basic/Dates.h"
#include "queries/LedgerLines.h"
#include "tests/queries/QueryBooks.h"

namespace {

// Days of a few lines, one of thousands, and lines without a day: any page has the balances that one walk
// over all lines gives.
TEST(LedgerLines, AnyPageHasTheBalancesOfTheWholeList) {
    test::QueryBooks books;
    const int cash = books.AddLedger("Cash", "Cash In Hand", 0.5, "C");
    qm::Conn().BeginTrans();
    for (int row = 0; row < 1200; ++row)
        books.Post(row, cash, 37100 - row % 100, row % 3 == 0 ? 2 : -1, row % 2 == 0 ? "Receipt" : "Journal");
    const std::string fields = "LedgerTrnNo, LedgerCode, LedgerTrnType, LedgerDrAmt, LedgerCrAmt";
    for (const char* of : {"<= 37100", "= 37050", "= 37050"})
        books.Run("Insert Into tb_Ledger2001 (" + fields + ", LedgerTxnDate) Select " + fields +
                  ", 37050 As LedgerTxnDate From tb_Ledger2001 Where LedgerTxnDate " + of);
    books.Run("Update tb_Ledger2001 Set LedgerTxnDate = Null Where LedgerTrnNo = 50");
    qm::Conn().CommitTrans();
    queries::Reading reading(books.DataPath());
    queries::LedgerLines whole(reading, cash);
    const std::vector<queries::LedgerLine> lines = whole.Page(0, whole.Count());
    ASSERT_EQ(lines.size(), 1u + 6036);
    double balance = -0.5, debit = 0, credit = 0.5;
    for (std::size_t at = 1; at < lines.size(); ++at) {
        balance += lines[at].debit - lines[at].credit;
        debit += lines[at].debit;
        credit += lines[at].credit;
        ASSERT_EQ(lines[at].balance, balance) << at;
        ASSERT_TRUE(lines[at - 1].date <= lines[at].date || at == 1) << at;
    }
    EXPECT_EQ(whole.Closing(), balance);
    EXPECT_EQ(whole.Sums().debit, debit);
    EXPECT_EQ(whole.Sums().credit, credit);
    queries::LedgerLines paged(reading, cash);
    for (const std::size_t at : {4000, 4800, 1, 500, 620, 3000, 5900}) {
        const auto page = paged.Page(at, 90);
        for (std::size_t of = 0; of < page.size(); of += 30) {
            EXPECT_EQ(page[of].key, lines[at + of].key) << at << '+' << of;
            EXPECT_EQ(page[of].balance, lines[at + of].balance) << at << '+' << of;
        }
        EXPECT_EQ(paged.PlaceOf(page.front().key), at);
    }
    queries::LedgerLines part(reading, cash, {queries::DateOf(37060), queries::DateOf(37070)});
    const auto some = part.Page(0, part.Count());
    EXPECT_EQ(some.size(), 1u + 11 * 12);
    EXPECT_EQ(some.back().balance, part.Closing());
    EXPECT_EQ(part.PlaceOf(lines.back().key), std::nullopt);
}

}  // namespace
