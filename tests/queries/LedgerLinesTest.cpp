#include <gmock/gmock.h>

#include "queries/LedgerLines.h"
#include "tests/queries/QueryBooks.h"

namespace {

// The balances far down come from a pass of their own: they go on where those of the head end.
TEST(LedgerLines, BalancesRunOnBeyondTheHead) {
    test::QueryBooks books;
    const int cash = books.AddLedger("Cash", "Cash In Hand", 0.5, "C");
    qm::Conn().BeginTrans();
    for (int row = 0; row < 1200; ++row) books.Post(row, cash, 37100 - row % 100, row % 2 == 0 ? 2 : -1);
    qm::Conn().CommitTrans();
    queries::Reading reading(books.DataPath());
    queries::LedgerLines head(reading, cash), deep(reading, cash);
    EXPECT_EQ(head.Count(), 1201u);
    EXPECT_EQ(deep.Page(1200, 9).front().balance, 599.5);
    EXPECT_EQ(head.Closing(), 599.5);
    for (const std::size_t at : {0, 1, 500, 1000}) {
        const queries::LedgerLine a = head.Page(at, 1).front(), b = deep.Page(at, 1).front();
        EXPECT_EQ(a.balance, b.balance) << at;
        EXPECT_EQ(a.key, b.key) << at;
    }
    EXPECT_EQ(deep.PlaceOf(head.Page(700, 1).front().key), 700u);
}

}  // namespace
