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

TEST_F(ExecuteTest, CountsRowsMatchedAndNeverAnEarlierStatements) {
    EXPECT_EQ(Affected(c, "Insert Into Small (Id, Remark) Values (1, 'a')"), 1);
    EXPECT_EQ(Affected(c, "Insert Into Small (Id, Remark) Values (2, 'b')"), 1);
    EXPECT_EQ(Affected(c, "Update Small Set Remark = 'same'"), 2);
    EXPECT_EQ(Affected(c, "Update Small Set Remark = 'same'"), 2);
    EXPECT_EQ(Affected(c, "Update Small Set Remark = 'x' Where Id = 7"), 0);
    EXPECT_EQ(Affected(c, "Select Id From Small"), 0);
    EXPECT_EQ(Affected(c, "Insert Into Small Select Id, Remark From Small"), 2);
    EXPECT_EQ(Affected(c, "Select * Into Small2 From Small"), 0);
    EXPECT_EQ(Affected(c, "Delete * From Small"), 4);
    EXPECT_EQ(c->Execute("Delete From Small")->State(), adStateClosed);
}

TEST_F(ExecuteTest, RefusesASecondStatementAndRunsNothingOfIt) {
    for (const char* statement :
         {"Delete From Small; Delete From Groups", "Insert Into Small (Id) Values (1); x",
          "Delete From Small -- x", "Insert Into Small (Id, Remark) Values (1)",
          "Delete  FROM SmallWHERE  Id=5", "Delete From Small Where Id = 'x"})
        EXPECT_NE(ErrorOf(c, statement), 0) << statement;
    Run("Insert Into Small (Id) Values (1)");
    EXPECT_EQ(Rows(c, "Select Id From Small"), "1");
}

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

TEST_F(ExecuteTest, TellsWhichValueAndTableAnErrorIsAbout) {
    const std::string text =
        test::TextOfError([&] { Run("Insert Into tb_Ledger2001 (LedgerTrnNo) Values ('abc')"); });
    EXPECT_NE(text.find("'abc'"), std::string::npos) << text;
    EXPECT_NE(text.find("tb_Ledger2001"), std::string::npos) << text;
    EXPECT_EQ(ErrorOf(c, "Insert Into tb_Ledger2001 (LedgerTrnNo) Values ('abc')"), error::BadValue);
    EXPECT_EQ(ErrorOf(c, "Insert Into tb_Ledger2001 (LedgerTrnNo) Values (3000000000)"),
              basic::error::Overflow);
}

TEST_F(ExecuteTest, AnUnwrittenBooleanIsFalseAndDefaultsHold) {
    Run("Insert Into tb_Ledger2001 (LedgerTrnNo) Values (1)");
    Run("Insert Into tblsysTPL (Type) Values ('T')");
    EXPECT_EQ(Rows(c, "Select LedgerMcGenerated, LedgerName From tb_Ledger2001"), "False|-");
    EXPECT_EQ(c->Execute("Select * From tblsysTPL")->Fields("ParticularDr").Value(), basic::Value(" "));
    EXPECT_EQ(c->Execute("Select * From tblsysTPL")->Fields("AmtDr").Value(), basic::Value(0.0));
}

TEST_F(ExecuteTest, TextsCompareWithoutRegardToCaseBeyondAscii) {
    for (const char* name : {"Äpfel", "zebra", "äPFEL", "Birne"})
        Run("Insert Into Small (Remark) Values ('" + std::string(name) + "')");
    EXPECT_EQ(Rows(c, "Select Remark From Small Where Remark = 'ÄPFEL'"), "Äpfel äPFEL");
    EXPECT_EQ(Rows(c, "Select Remark From Small Where Remark Like 'äp%'"), "Äpfel äPFEL");
    EXPECT_EQ(Rows(c, "Select Remark From Small Where Remark Like '_IRNE'"), "Birne");
    EXPECT_EQ(Rows(c, "Select UCase(Remark) As U From Small Where Remark = 'äpfel'"), "ÄPFEL ÄPFEL");
    EXPECT_EQ(Rows(c, "Select Distinct Remark From Small Order By Remark Desc"), "Äpfel zebra Birne");
}

TEST_F(ExecuteTest, RowsComeAsTheyWereInsertedWhateverTheIndex) {
    for (const char* values : {"3, 20", "1, 10", "2, 20", "4, 10"})
        Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerTxnDate) Values (" + std::string(values) + ")");
    EXPECT_EQ(Rows(c, "Select LedgerTrnNo From tb_Ledger2001 Where LedgerTxnDate >= 10"), "3 1 2 4");
    EXPECT_EQ(Rows(c, "Select LedgerTrnNo From tb_Ledger2001 Order By LedgerTxnDate"), "1 4 3 2");
    // A key that is the same in all rows, and must not be taken for the place of a column.
    for (const auto& [same, rows] : {std::pair{"True", "1|True 4|True 3|True 2|True"},
                                     {"-True", "1|1 4|1 3|1 2|1"},
                                     {"Null", "1|- 4|- 3|- 2|-"},
                                     {"5", "1|5 4|5 3|5 2|5"}})
        EXPECT_EQ(Rows(c, "Select LedgerTrnNo, " + std::string(same) +
                              " As Same From tb_Ledger2001 Order By Same Desc, LedgerTxnDate"),
                  rows);
    EXPECT_EQ(Rows(c, "Select Distinct LedgerTxnDate From tb_Ledger2001"), "20 10");
}

TEST_F(ExecuteTest, InsertSelectMatchesByNameAndChecksItsValues) {
    Run("Insert Into Small (Id, Remark) Values (7, 'seven')");
    Run("Insert Into Small Select Remark As Remark, 8 As Id From Small");
    EXPECT_EQ(Rows(c, "Select Id, Remark From Small"), "7|seven 8|seven");
    EXPECT_NE(ErrorOf(c, "Insert Into Small Select Id As Nothing From Small"), 0);
    EXPECT_NE(ErrorOf(c, "Insert Into Small Select Remark As Id From Small"), 0);
    EXPECT_EQ(Rows(c, "Select Id From Small"), "7 8");
}

TEST_F(ExecuteTest, ACounterNeverGivesANumberTwice) {
    Run("Insert Into Groups (Head) Values ('a')");
    Run("Insert Into Groups (Head) Values ('b')");
    Run("Delete From Groups Where Group_Id = 2");
    Run("Insert Into Groups (Head) Values ('c')");
    EXPECT_EQ(Rows(c, "Select Group_Id, Head From Groups"), "1|a 3|c");
}

TEST_F(ExecuteTest, SelectIntoKeepsDefinitionOrderAndIndexes) {
    for (const char* no : {"2", "1", "3"})
        Run("Insert Into tb_Ledger2001 (LedgerTrnNo) Values (" + std::string(no) + ")");
    c->BeginTrans();
    Run("Select * Into TB_LEDGER2002  From tb_ledger2001");
    c->CommitTrans();
    EXPECT_EQ(Rows(c, "Select LedgerTrnNo From tb_Ledger2002"), "2 1 3");
    Run("Insert Into tb_Ledger2002 (LedgerTrnNo) Values (4)");
    EXPECT_EQ(Rows(c, "Select LedgerMcGenerated From tb_Ledger2002 Where LedgerTrnNo = 4"), "False");
    EXPECT_EQ(ErrorOf(c, "Insert Into tb_Ledger2002 (LedgerTrnNo) Values ('x')"), error::BadValue);
    EXPECT_EQ(test::TextOfError([&] { Run("Select * Into tb_Ledger2002 From tb_Ledger2001"); }),
              "Table 'tb_Ledger2002' already exists.");
    EXPECT_EQ(ErrorOf(c, "Select * Into tb_Ledger2003 From Nothing"), error::NoSuchTable);

    c->Close();
    sqlite3* plain = nullptr;
    sqlite3_open(store.Path().c_str(), &plain);
    sqlite3_exec(plain, "PRAGMA key = 'it''s a secret'", nullptr, nullptr, nullptr);
    EXPECT_EQ(sqlite3_exec(plain, "DROP INDEX ix_TB_LEDGER2002_LedgerTxnDate", nullptr, nullptr, nullptr),
              SQLITE_OK)
        << sqlite3_errmsg(plain);
    sqlite3_close(plain);
}

TEST_F(ExecuteTest, SeesATableThatAnotherProgramJustMade) {
    const ConnectionPtr other = store.Connect();
    EXPECT_EQ(ErrorOf(c, "Select * From tb_Ledger2002"), error::NoSuchTable);
    other->Execute("Select * Into tb_Ledger2002 From tb_Ledger2001");
    EXPECT_EQ(Rows(c, "Select * From tb_Ledger2002"), "");
}

TEST_F(ExecuteTest, DividesByDoublesAndFailsByZero) {
    Run("Insert Into Small (Id) Values (7)");
    EXPECT_EQ(Rows(c, "Select Id From Small Where Id / 2 = 3.5"), "7");
    EXPECT_EQ(ErrorOf(c, "Select Id From Small Where Id / 0 = 1"), basic::error::DivisionByZero);
}

TEST_F(ExecuteTest, SumsReadAsTheClassicText) {
    Run("Insert Into tb_Ledger2001 (LedgerDrAmt) Values (0.1)");
    Run("Insert Into tb_Ledger2001 (LedgerDrAmt) Values (0.2)");
    EXPECT_EQ(Rows(c, "Select Sum(LedgerDrAmt) As T, Max(LedgerTrnNo) As M From tb_Ledger2001"), "0.3|-");
    Run("Update tb_Ledger2001 Set LedgerName = LedgerDrAmt * 10000");
    EXPECT_EQ(Rows(c, "Select LedgerName From tb_Ledger2001"), "1000 2000");
}

TEST_F(ExecuteTest, ACommandRunsItsText) {
    Command command;
    command.CommandText = "Select Id From Small";
    EXPECT_EQ(ErrorOf([&] { command.Execute(); }), error::ObjectClosed);
    command.ActiveConnection = c;
    EXPECT_TRUE(command.Execute()->Eof());
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
    c->CommitTrans();
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
