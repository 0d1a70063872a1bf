#include <gtest/gtest.h>

#include "platform/ado/Recordset.h"
#include "tests/platform/ado/TestStore.h"

namespace ado {
namespace {

using basic::Value;
using test::ErrorOf;
using test::Rows;
using test::RowsOf;
using test::TestStore;

class RecordsetTest : public testing::Test {
  protected:
    void Run(const std::string& statement) { c->Execute(statement); }
    void Fill(int rows) {
        for (int i = 1; i <= rows; ++i)
            Run("Insert Into Small (Id, Remark) Values (" + std::to_string(i) + ", 'r" + std::to_string(i) +
                "')");
    }
    TestStore store;
    ConnectionPtr c = store.Connect();
    Recordset set;
};

TEST_F(RecordsetTest, StaysAsReadWhileAllChanges) {
    Fill(3);
    Recordset postponed, read, filtered;
    postponed.Open("Small", c, adOpenDynamic);
    filtered.Open("Small", c, adOpenDynamic);
    filtered.SetFilter("Id > 1");
    read.Open("Select Id From Small Where Id > 0", c, adOpenDynamic);
    c->BeginTrans();
    Run("Delete From Small Where Id < 3");
    Run("Insert Into Small (Id) Values (9)");
    c->CommitTrans();
    c->BeginTrans();
    Run("Delete From Small");
    c->RollbackTrans();
    EXPECT_EQ(RowsOf(read), "1 2 3");
    EXPECT_EQ(RowsOf(postponed), "1|r1 2|r2 3|r3");
    EXPECT_EQ(RowsOf(filtered), "2|r2 3|r3");
    EXPECT_EQ(Rows(c, "Select Id From Small"), "3 9");
}

TEST_F(RecordsetTest, KeptRowsStandWhateverBecomesOfTheirSet) {
    Fill(3);
    set.Open("Select Distinct Id From Small", c, adOpenStatic);
    set.SetFilter("Id > 1");
    const KeptRows narrowed = set.Keep();
    set.SetFilter("");
    const KeptRows all = set.Keep();
    set.SetFilter("Id = 3");
    const KeptRows sifted = set.Keep();
    Run("Delete From Small");
    set.Requery();
    EXPECT_EQ(set.Keep().Count(), 0);
    set.Close();
    ASSERT_EQ(narrowed.Count(), 2);
    EXPECT_EQ(narrowed.ValueAt(1, 0), Value(std::int16_t{3}));
    EXPECT_EQ(all.Count(), 3);
    ASSERT_EQ(sifted.Count(), 1);
    EXPECT_EQ(sifted.ValueAt(0, 0), Value(std::int16_t{3}));
    EXPECT_EQ(ErrorOf([&] { sifted.ValueAt(1, 0); }), error::NoCurrentRecord);
}

TEST_F(RecordsetTest, OpensAgainOnItsLastSource) {
    Fill(1);
    set.SetSource("Select Remark From Small");
    set.SetActiveConnection(c);
    set.Open();
    EXPECT_EQ(ErrorOf([&] { set.Open(); }), error::ObjectOpen);
    EXPECT_EQ(ErrorOf([&] { set.Find("Id = 1", 0, -1); }), error::BadArgument);
    EXPECT_EQ(ErrorOf([&] { Recordset().Open("Small"); }), error::ObjectClosed);
    EXPECT_EQ(RowsOf(set), "r1");
    set.Close();
    Fill(1);
    set.Open();
    EXPECT_EQ(RowsOf(set), "r1 r1");
    set.Close();
    set.Open("[Small]");
    EXPECT_EQ(RowsOf(set), "1|r1 1|r1");
}

TEST_F(RecordsetTest, KnowsItsCursor) {
    set.Open("Small", c);
    EXPECT_EQ(set.CursorType(), adOpenForwardOnly);
    EXPECT_EQ(set.CursorLocation(), adUseServer);
    set.Close();
    set.SetCursorLocation(adUseClient);
    set.Open("Small", c, adOpenForwardOnly, adLockOptimistic);
    EXPECT_EQ(set.CursorType(), adOpenStatic);
    const RecordsetPtr handed = c->Execute("Select * From Small");
    EXPECT_EQ(handed->CursorType(), adOpenForwardOnly);
}

TEST_F(RecordsetTest, OnlyAForwardOnlySetSeesNewRowsByMovingFirst) {
    Fill(1);
    Recordset forward, fixed;
    forward.Open("Small", c);
    fixed.Open("Small", c, adOpenStatic);
    Fill(1);
    fixed.MoveFirst();
    EXPECT_EQ(fixed.RecordCount(), 1);
    forward.MoveFirst();
    EXPECT_EQ(forward.RecordCount(), 2);
    fixed.Requery();
    EXPECT_EQ(fixed.RecordCount(), 2);
    Run("Delete From Small");
    EXPECT_EQ(ErrorOf([&] { forward.MoveFirst(); }), error::NoCurrentRecord);
}

TEST_F(RecordsetTest, FieldsHaveNamesTypesAndValuesOfTheirKind) {
    Run("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerName, LedgerDrAmt) Values (1, 'n', 2)");
    Fill(1);
    set.Open("Select * From tb_Ledger2001, Small", c);
    const Value values[] = {1, "n", {}, 2.0, false, std::int16_t{1}, "r1"};
    const int types[] = {adInteger, adVarWChar, adInteger, adDouble, adBoolean, adSmallInt, adVarWChar};
    ASSERT_EQ(set.FieldCount(), std::size(types));
    for (std::size_t i = 0; i < set.FieldCount(); ++i) {
        EXPECT_EQ(set.Fields(i).Type(), types[i]) << set.Fields(i).Name();
        EXPECT_EQ(set.Fields(i).Value(), values[i]) << set.Fields(i).Name();
        EXPECT_EQ(set.ValueAt(0, i), values[i]);
    }
    EXPECT_EQ(set.Fields("LEDGERNAME").Name(), "LedgerName");
    EXPECT_EQ(ErrorOf([&] { set.Fields("Nothing"); }), error::ItemNotFound);
    EXPECT_EQ(ErrorOf([&] { set.Fields(7); }), error::ItemNotFound);
    EXPECT_EQ(ErrorOf([&] { set.ValueAt(1, 0); }), error::NoCurrentRecord);
}

TEST_F(RecordsetTest, AValueThatDoesNotFitItsFieldReadsAsItIs) {
    QM_FILE_ONLY("a server's columns hold their types alone");
    TestStore loose(
        "CREATE TABLE T (N INTEGER, B BOOLEAN, S SMALLINT); INSERT INTO T VALUES (1, 1, 1), (1.5, 7, "
        "70000);INSERT INTO T VALUES ('x', NULL, -2147483648), (3000000000, 0, 2)");
    set.Open("T", loose.Connect());
    EXPECT_EQ(RowsOf(set), "1|True|1 1.5|7|70000 x|-|-2147483648 3000000000|False|2");
}

TEST_F(RecordsetTest, OutlivesItsConnectionOnlyClosed) {
    Fill(1);
    set.Open("Select Id From Small Where Id = 1", c, adOpenStatic);
    Recordset postponed;
    postponed.Open("Small", c, adOpenStatic);
    c->Close();
    EXPECT_EQ(set.RecordCount(), 1);
    EXPECT_EQ(ErrorOf([&] { set.Requery(); }), error::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { postponed.Eof(); }), error::ObjectClosed);
    postponed.Close();
}

TEST_F(RecordsetTest, AScanThatChangesItsOwnKeyEnds) {
    Fill(3);
    set.Open("Select * From Small Order By Id", c, adOpenDynamic, adLockOptimistic);
    int rounds = 0;
    for (; !set.Eof() && rounds < 10; set.MoveNext(), ++rounds)
        set.Fields("Id").SetValue(basic::ToLong(set["Id"]) + 100);
    EXPECT_EQ(rounds, 3);
    EXPECT_EQ(Rows(c, "Select Id From Small"), "101 102 103");
}

}  // namespace
}  // namespace ado
