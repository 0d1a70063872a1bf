#include <algorithm>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "platform/ado/Command.h"
#include "platform/ado/store/StatementCache.h"
#include "tests/platform/ado/TestStore.h"
#include "tests/support/Cases.h"

namespace ado {
namespace {

using test::Affected;
using ::test::Cases;
using ::test::Cells;
using test::ErrorOf;
using test::Rows;
using test::TestStore;

class ExecuteTest : public testing::Test {
  protected:
    void Run(const std::string& statement) { c->Execute(statement); }
    TestStore store;
    ConnectionPtr c = store.Connect();
};

class Statements : public ExecuteTest, public testing::WithParamInterface<::test::Session> {
  protected:
    // What comes of a statement, as the file of sessions says; "" where nothing is to be said.
    std::string Say(const std::string& line) {
        const auto rest = [&](const char* word) { return line.substr(std::string(word).size()); };
        if (line.starts_with("text ")) return test::TextOfError([&] { Run(rest("text ")); });
        std::string said;
        const std::int32_t failure = ErrorOf([&] {
            if (line == "Begin")
                c->BeginTrans();
            else if (line == "Commit")
                c->CommitTrans();
            else if (line == "Rollback")
                c->RollbackTrans();
            else if (line == "Close")
                c->Close();
            else if (line == "Open")
                c->Open();
            else if (line == "depth")
                said = std::to_string(c->TransDepth());
            else if (line.starts_with("count "))
                said = std::to_string(Affected(c, rest("count ")));
            else if (const RecordsetPtr rows = c->Execute(line); rows->State() == adStateOpen)
                said = test::RowsOf(*rows);
        });
        return failure == 0 ? said : test::NameOf(failure);
    }
};

TEST_P(Statements, ComeToWhatIsTold) {
    for (const ::test::Block& step : GetParam().steps) {
        Cells said;
        for (const std::string& line : step.given)
            if (const std::string one = Say(line); !one.empty()) said.push_back(one);
        ::test::ExpectSaid(said, step);
    }
}

INSTANTIATE_TEST_SUITE_P(All, Statements, testing::ValuesIn(::test::Sessions("platform/ado/ExecuteTest.txt")),
                         [](const auto& session) { return session.param.name; });

TEST_F(ExecuteTest, AValueIsConvertedToItsFieldOrRefused) {
    for (const Cells& cells : Cases("platform/ado/cases.txt", "Stored values")) {
        const std::string &literal = cells.at(0), &field = cells.at(1), &reads = cells.at(2);
        SCOPED_TRACE(literal + " to " + field);
        const std::string insert = "Insert Into tb_Ledger2001 (" + field + ") Values (" + literal + ")";
        const std::string update = "Update tb_Ledger2001 Set " + field + " = " + literal;
        Run("Delete From tb_Ledger2001");
        if (reads.empty()) {
            EXPECT_NE(ErrorOf(c, insert), 0);
            Run("Insert Into tb_Ledger2001 (LedgerTrnNo) Values (Null)");
            EXPECT_NE(ErrorOf(c, update), 0);
            continue;
        }
        Run(insert);
        Run("Insert Into tb_Ledger2001 (LedgerTxnDate) Values (Null)");
        Run(update);
        EXPECT_EQ(Rows(c, "Select " + field + " From tb_Ledger2001"), reads + " " + reads);
    }
}

TEST_F(ExecuteTest, SelectIntoKeepsTheIndexes) {
    Run("Select * Into TB_LEDGER2002  From tb_ledger2001");
    c->Close();
    EXPECT_NO_THROW(store.Administer("DROP INDEX \"ix_TB_LEDGER2002_LedgerTxnDate\""));
}

TEST_F(ExecuteTest, SeesATableThatAnotherProgramJustMade) {
    const ConnectionPtr other = store.Connect();
    EXPECT_EQ(ErrorOf(c, "Select * From tb_Ledger2002"), error::NoSuchTable);
    other->Execute("Select * Into tb_Ledger2002 From tb_Ledger2001");
    EXPECT_EQ(Rows(c, "Select * From tb_Ledger2002"), "");
}

TEST_F(ExecuteTest, ACommandRunsItsText) {
    Command command;
    command.CommandText = "Select Id From Small";
    EXPECT_EQ(ErrorOf([&] { command.Execute(); }), error::ObjectClosed);
    command.ActiveConnection = c;
    EXPECT_TRUE(command.Execute()->Eof());
    command.CommandText = "Delete From Small";
    EXPECT_EQ(command.Execute()->State(), adStateClosed);
}

TEST_F(ExecuteTest, TheSameStatementRunsAsOftenAsThereAreShapesAndBeyond) {
    for (int round = 0; round < 2; ++round)
        for (int shape = 0; shape < 600; ++shape)
            Run("Select Id As Name" + std::to_string(shape) + " From Small");
    EXPECT_EQ(Rows(c, "Select Id From Small Where Id = 1"), "");
}

// A host that posts all day stays small.
TEST_F(ExecuteTest, KeepsFewPagesAndStatementsInMemory) {
    Run("Insert Into Small (Remark) Values ('" + std::string(900, 'x') + "')");
    c->BeginTrans();
    for (int doublings = 0; doublings < 15; ++doublings)
        Run("Insert Into Small (Remark) Select Remark As Remark From Small");
    c->CommitTrans();  // on a server there is nothing to drop
    constexpr int mebibyte = 1024 * 1024;
    EXPECT_LT(sqlite3_memory_used(), 12 * mebibyte);

    StatementCache cache(100'000);
    std::vector<std::weak_ptr<PreparedStatement>> added;
    for (int shape = 0; shape < 3000; ++shape) {
        Plan plan;
        plan.head = std::string(1000, 's');
        added.push_back(cache.Add(std::to_string(shape), std::move(plan)));
        EXPECT_NE(cache.Find("0"), nullptr) << "the one in use stays";
    }
    EXPECT_EQ(std::count_if(added.begin(), added.end(), [](const auto& one) { return !one.expired(); }), 100);
}

}  // namespace
}  // namespace ado
