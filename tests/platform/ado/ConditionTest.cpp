#include <gtest/gtest.h>

#include "tests/platform/ado/TestStore.h"
#include "tests/support/Cases.h"

namespace ado {
namespace {

using ::test::Cases;
using ::test::Cells;
using test::ErrorOf;
using test::TestStore;

// Rows of all kinds: number, name, amount, flag.
void FillKinds(const ConnectionPtr& c) {
    c->BeginTrans();
    for (const char* values : {"1, 'Äpfel', 10.5, True", "2, 'it''s \"so\"', 20, False",
                               "3, Null, Null, True", "4, '5', 0.3, False", "5, '', -1, False"})
        c->Execute(
            "Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerName, LedgerDrAmt, LedgerMcGenerated) Values (" +
            std::string(values) + ")");
    c->CommitTrans();
}

// Each condition three ways: joined to the statement, on rows that stand in memory, and as Find.
TEST(ConditionTest, MeansTheSameToTheStoreAndInMemory) {
    TestStore store;
    const ConnectionPtr connection = store.Connect();
    FillKinds(connection);
    const auto numbers = [](Recordset& set) {
        std::string all;
        for (; !set.Eof(); set.MoveNext())
            all += (all.empty() ? "" : " ") + basic::ToText(set["LedgerTrnNo"]);
        return all;
    };
    for (const Cells& c : Cases("platform/ado/cases.txt", "Filters")) {
        const std::string &condition = c.at(0), &expected = c.at(1);
        Recordset fresh, read;
        fresh.Open("tb_Ledger2001", connection, adOpenStatic);
        fresh.SetFilter(condition);
        EXPECT_EQ(numbers(fresh), expected) << condition;
        read.Open("tb_Ledger2001", connection, adOpenStatic);
        EXPECT_EQ(read.RecordCount(), 5);
        read.SetFilter(condition);
        EXPECT_EQ(numbers(read), expected) << condition;
    }
}

TEST(ConditionTest, RefusesWhatIsNoPlainComparison) {
    TestStore store;
    const ConnectionPtr c = store.Connect();
    Recordset set;
    set.Open("tb_Ledger2001", c, adOpenStatic);
    for (const char* condition :
         {"LedgerTrnNo", "LedgerTrnNo =", "= 5", "LedgerTrnNo = 5 Or", "LedgerTrnNo = 'x",
          "LedgerTrnNo Like 5", "LedgerName Like 'a*b'", "LedgerTrnNo = 5 And", "[LedgerTrnNo = 5",
          "LedgerTrnNo = 5x", "LedgerTrnNo = LedgerTrnNo", "LedgerTrnNo = #1/1/2001#", " "})
        EXPECT_EQ(ErrorOf([&] { set.SetFilter(condition); }), error::BadArgument) << condition;
    EXPECT_EQ(ErrorOf([&] { set.SetFilter("Nothing = 5"); }), error::ItemNotFound);
    EXPECT_EQ(set.Filter(), "");
    set.SetFilter("");
    EXPECT_EQ(set.RecordCount(), 0);
}

}  // namespace
}  // namespace ado
