#include <gtest/gtest.h>

#include "tests/platform/ado/TestStore.h"

namespace ado {
namespace {

using basic::Value;
using test::ErrorOf;
using test::Rows;
using test::TestStore;

class RecordsetEditingTest : public testing::Test {
  protected:
    void SetUp() override {
        for (int i = 0; i < 3; ++i) c->Execute("Insert Into Small (Id, Remark) Values (1, 'twin')");
    }
    void Open(const std::string& source = "Small", int lockType = adLockOptimistic) {
        set.Open(source, c, adOpenDynamic, lockType);
    }
    TestStore store;
    ConnectionPtr c = store.Connect();
    Recordset set;
    const char* all = "Select Id, Remark From Small";
};

TEST_F(RecordsetEditingTest, AMoveStoresIntoExactlyItsOwnRow) {
    Open();
    set.MoveNext();
    set.Fields("Remark").SetValue("second");
    EXPECT_EQ(set["remark"], Value("second"));
    EXPECT_EQ(Rows(c, all), "1|twin 1|twin 1|twin");
    set.MoveNext();
    EXPECT_EQ(Rows(c, all), "1|twin 1|second 1|twin");
    set.MovePrevious();
    EXPECT_EQ(set["Remark"], Value("second"));
}

TEST_F(RecordsetEditingTest, UpdateStoresAndCloseDrops) {
    Open("Select * From Small Where Id = 1", adLockPessimistic);
    set.Fields("Id").SetValue("5");
    set.Update();
    set.Fields("Id").SetValue(7);
    set.Close();
    EXPECT_EQ(Rows(c, all), "5|twin 1|twin 1|twin");
}

TEST_F(RecordsetEditingTest, AScanThatChangesItsOwnKeyEnds) {
    Open("Select * From Small Order By Id");
    int rounds = 0;
    for (; !set.Eof() && rounds < 10; set.MoveNext(), ++rounds)
        set.Fields("Id").SetValue(basic::ToLong(set["Id"]) + 100);
    EXPECT_EQ(rounds, 3);
    EXPECT_EQ(Rows(c, all), "101|twin 101|twin 101|twin");
}

TEST_F(RecordsetEditingTest, AddNewWritesOnlyWhatWasSetAndReadsBackTheRest) {
    Recordset work;
    work.Open("tblsysTPL", c, adOpenDynamic, adLockOptimistic);
    work.AddNew();
    work.Fields("Type").SetValue("T");
    EXPECT_TRUE(work["ParticularDr"].IsNull());
    work.Update();
    EXPECT_EQ(work["ParticularDr"], Value(" "));
    EXPECT_EQ(work["AmtDr"], Value(0.0));
    work.AddNew();
    work.Fields("AmtDr").SetValue(2.5);
    work.AddNew();  // stores the one before
    work.Update();
    EXPECT_EQ(work.AbsolutePosition(), 3);
    EXPECT_EQ(Rows(c, "Select AmtDr, Type From tblsysTPL"), "0|T 2.5|- 0|-");
}

TEST_F(RecordsetEditingTest, AnAddedRecordCanBeEditedAndShowsItsCounter) {
    Open("Groups");
    set.AddNew();
    set.Fields("Head").SetValue("new");
    set.Update();
    EXPECT_EQ(set["Group_Id"], Value(1));
    set.Fields("Head").SetValue("newer");
    set.MoveFirst();
    EXPECT_EQ(Rows(c, "Select Group_Id, Head From Groups"), "1|newer");
}

TEST_F(RecordsetEditingTest, RefusesWhatCannotBeStored) {
    Open("Small", adLockReadOnly);
    EXPECT_EQ(ErrorOf([&] { set.Fields("Id").SetValue(1); }), error::NotUpdatable);
    EXPECT_EQ(ErrorOf([&] { set.AddNew(); }), error::NotUpdatable);
    EXPECT_EQ(ErrorOf([&] { set.Update(); }), error::NotUpdatable);
    set.Close();
    Open("Select Max(Id) As M From Small");
    EXPECT_EQ(ErrorOf([&] { set.Fields("M").SetValue(1); }), error::NotUpdatable);
    set.Close();
    Open("Select Small.Id From Small, Groups");
    EXPECT_EQ(ErrorOf([&] { set.AddNew(); }), error::NotUpdatable);
    set.Close();
    Open("Select Id, 'x' As Fixed From Small");
    EXPECT_EQ(ErrorOf([&] { set.Fields("Fixed").SetValue("y"); }), error::NotUpdatable);
    EXPECT_EQ(ErrorOf([&] { set.Fields("Id").SetValue("abc"); }), error::BadValue);
    EXPECT_EQ(ErrorOf([&] { set.Fields("Id").SetValue(40000); }), basic::error::Overflow);
    set.MoveLast();
    set.MoveNext();
    EXPECT_EQ(ErrorOf([&] { set.Fields("Id").SetValue(1); }), error::NoCurrentRecord);
}

TEST_F(RecordsetEditingTest, TellsWhenTheRowIsGone) {
    Open();
    c->Execute("Delete From Small");
    set.Fields("Id").SetValue(5);
    EXPECT_EQ(ErrorOf([&] { set.MoveNext(); }), error::NoCurrentRecord);
    set.Close();
    EXPECT_EQ(Rows(c, all), "");
}

TEST_F(RecordsetEditingTest, EditsLiveAndDieWithTheTransaction) {
    Open();
    c->BeginTrans();
    set.Fields("Id").SetValue(5);
    set.MoveNext();
    c->RollbackTrans();
    EXPECT_EQ(Rows(c, all), "1|twin 1|twin 1|twin");
}

TEST_F(RecordsetEditingTest, NullIsStoredAndAFilteredRowIsTheRightOne) {
    c->Execute("Insert Into Small (Id, Remark) Values (9, 'nine')");
    for (const bool readFirst : {false, true}) {
        Recordset rows;
        rows.Open("Small", c, adOpenDynamic, adLockOptimistic);
        if (readFirst) rows.MoveLast();
        rows.SetFilter("Id = 9");
        rows.Fields("Remark").SetValue(readFirst ? Value() : Value("n"));
        rows.Update();
        EXPECT_EQ(Rows(c, "Select Remark From Small Where Id = 9"), readFirst ? "-" : "n");
    }
}

}  // namespace
}  // namespace ado
