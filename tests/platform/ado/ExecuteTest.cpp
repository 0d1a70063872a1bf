#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <sstream>
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

// The connection and a record set, driven by the words of the file of sessions.
class Statements : public ExecuteTest, public testing::WithParamInterface<::test::Session> {
  protected:
    // What comes of a line; "" where nothing is to be said.
    std::string Say(const std::string& line) {
        const std::string word = line.substr(0, line.find(' '));
        const std::string rest = word.size() < line.size() ? line.substr(word.size() + 1) : "";
        if (word == "text") return test::TextOfError([&] { Run(rest); });
        std::string said;
        const std::int32_t failure = ErrorOf([&] {
            if (const auto call = calls.find(word); call != calls.end())
                said = call->second(rest);
            else if (const RecordsetPtr rows = c->Execute(line); rows->State() == adStateOpen)
                said = test::RowsOf(*rows);
        });
        return failure == 0 ? said : test::NameOf(failure);
    }

  private:
    using Call = std::function<std::string(const std::string& rest)>;
    template <class Action>
    static Call Silent(Action action) {
        return [action](const auto& rest) {
            action(rest);
            return "";
        };
    }
    template <class Action>
    Call Moving(Action action) {
        return [this, action](const auto& rest) -> std::string {
            action(rest);
            if (set.Eof() || set.Bof()) return set.Eof() && set.Bof() ? "empty" : set.Eof() ? "EOF" : "BOF";
            return std::to_string(set.AbsolutePosition());
        };
    }
    // "dynamic optimistic Select ...": the cursor, the lock if it is not for reading, and the source.
    void Open(const std::string& told) {
        static const std::map<std::string, int> words{
            {"forward", adOpenForwardOnly},   {"keyset", adOpenKeyset},
            {"dynamic", adOpenDynamic},       {"static", adOpenStatic},
            {"optimistic", adLockOptimistic}, {"pessimistic", adLockPessimistic}};
        std::istringstream text(told);
        std::string cursor, lock, source;
        text >> cursor >> lock;
        const bool locks = words.contains(lock);
        std::getline(text >> std::ws, source);
        set.Open(locks ? source : told.substr(cursor.size() + 1), c, words.at(cursor),
                 locks ? words.at(lock) : adLockReadOnly);
    }
    void Set(const std::string& told) {
        const std::string name = told.substr(0, told.find(' ')), value = told.substr(name.size() + 1);
        set.Fields(name).SetValue(value == "Null" ? basic::Value() : basic::Value(value));
    }
    void Find(const std::string& told) {
        const bool past = told.starts_with("+ ");
        set.Find(told.substr(past ? 2 : 0), past ? 1 : 0);
    }
    static std::string Text(const basic::Value& value) { return value.IsNull() ? "-" : basic::ToText(value); }

    Recordset set;
    const std::map<std::string, Call> calls{
        {"Begin", Silent([this](auto&) { c->BeginTrans(); })},
        {"Commit", Silent([this](auto&) { c->CommitTrans(); })},
        {"Rollback", Silent([this](auto&) { c->RollbackTrans(); })},
        {"Close", Silent([this](auto&) { c->Close(); })},
        {"Open", Silent([this](auto&) { c->Open(); })},
        {"depth", [this](auto&) { return std::to_string(c->TransDepth()); }},
        {"count", [this](auto& rest) { return std::to_string(Affected(c, rest)); }},
        {"open", Moving([this](auto& rest) { Open(rest); })},
        {"close", Silent([this](auto&) { set.Close(); })},
        {"requery", Moving([this](auto&) { set.Requery(); })},
        {"first", Moving([this](auto&) { set.MoveFirst(); })},
        {"next", Moving([this](auto&) { set.MoveNext(); })},
        {"previous", Moving([this](auto&) { set.MovePrevious(); })},
        {"last", Moving([this](auto&) { set.MoveLast(); })},
        {"at", Moving([](auto&) {})},
        {"find", Moving([this](auto& rest) { Find(rest); })},
        {"filter", Moving([this](auto& rest) { set.SetFilter(rest); })},
        {"rows", [this](auto&) { return test::RowsOf(set); }},
        {"records", [this](auto&) { return std::to_string(set.RecordCount()); }},
        {"field", [this](auto& rest) { return Text(set[rest]); }},
        {"set", Silent([this](auto& rest) { Set(rest); })},
        {"addnew", Silent([this](auto&) { set.AddNew(); })},
        {"update", Silent([this](auto&) { set.Update(); })},
    };
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
