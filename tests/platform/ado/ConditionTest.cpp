#include <gtest/gtest.h>

#include "tests/platform/ado/TestStore.h"

namespace ado {
namespace {

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

struct Sifted {
    const char* condition;
    const char* numbers;
};

const Sifted sifted[] = {
    {"LedgerTrnNo = 2", "2"},
    {"ledgertrnno<>2", "1 3 4 5"},
    {"LedgerTrnNo >= 2 And LedgerTrnNo <4", "2 3"},
    {" [LedgerTrnNo] > 1 and tb_Ledger2001.LedgerTrnNo <= 2 ", "2"},
    {"LedgerDrAmt = 0.3", "4"},
    {"LedgerDrAmt < 0", "5"},
    {"LedgerDrAmt > -1.5E0", "1 2 4 5"},
    {"LedgerDrAmt <> 20", "1 4 5"},  // Null meets nothing
    {"LedgerName = 'ÄPFEL'", "1"},
    {"LedgerName = 'it''s \"so\"'", "2"},
    {"LedgerName = \"it's \"\"so\"\"\"", "2"},
    {"LedgerName = ''", "5"},
    {"LedgerName <> ''", "1 2 4"},
    {"LedgerName = 5", "4"},
    {"LedgerTrnNo = '3'", "3"},
    {"LedgerTrnNo = 'abc'", ""},
    {"LedgerTrnNo <> 'abc'", "1 2 3 4 5"},
    {"LedgerTrnNo < 'abc'", ""},
    {"LedgerMcGenerated = True", "1 3"},
    {"LedgerMcGenerated = -1", "1 3"},
    {"LedgerMcGenerated = 2", ""},
    {"LedgerMcGenerated <> -2", "1 2 3 4 5"},
    {"LedgerTrnNo = True", "1"},
    {"LedgerDrAmt = True", "5"},
    {"LedgerDrAmt <> True", "1 2 4"},
    {"LedgerName = True", ""},
    {"LedgerMcGenerated <> 1 And LedgerTrnNo > 2", "4 5"},
    {"LedgerMcGenerated = False", "2 4 5"},
};

// Each condition three ways: joined to the statement, on rows that stand in memory, and as Find.
TEST(ConditionTest, MeansTheSameToTheStoreAndInMemory) {
    TestStore store;
    const ConnectionPtr c = store.Connect();
    FillKinds(c);
    const auto numbers = [](Recordset& set) {
        std::string all;
        for (; !set.Eof(); set.MoveNext())
            all += (all.empty() ? "" : " ") + basic::ToText(set["LedgerTrnNo"]);
        return all;
    };
    for (const auto& [condition, expected] : sifted) {
        Recordset fresh, read;
        fresh.Open("tb_Ledger2001", c, adOpenStatic);
        fresh.SetFilter(condition);
        EXPECT_EQ(numbers(fresh), expected) << condition;
        read.Open("tb_Ledger2001", c, adOpenStatic);
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
         {"LedgerTrnNo", "LedgerTrnNo =", "= 5", "LedgerTrnNo = 5 Or LedgerTrnNo = 6", "LedgerTrnNo = 'x",
          "LedgerTrnNo Like 'x'", "LedgerTrnNo = 5 And", "[LedgerTrnNo = 5", "LedgerTrnNo = 5x",
          "LedgerTrnNo = LedgerTrnNo", "LedgerTrnNo = #1/1/2001#", " "})
        EXPECT_EQ(ErrorOf([&] { set.SetFilter(condition); }), error::BadArgument) << condition;
    EXPECT_EQ(ErrorOf([&] { set.SetFilter("Nothing = 5"); }), error::ItemNotFound);
    EXPECT_EQ(set.Filter(), "");
    set.SetFilter("");
    EXPECT_EQ(set.RecordCount(), 0);
}

}  // namespace
}  // namespace ado
