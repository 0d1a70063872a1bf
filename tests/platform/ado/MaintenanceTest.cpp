#include <gtest/gtest.h>

#include "platform/ado/Maintenance.h"
#include "tests/platform/ado/TestStore.h"

namespace ado {
namespace {

using test::ErrorOf;
using test::Rows;
using test::TestStore;

class MaintenanceTest : public testing::Test {
  protected:
    void SetUp() override {
        c->BeginTrans();
        for (int i = 0; i < 300; ++i)
            c->Execute("Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerName, LedgerDrAmt) Values (" +
                       std::to_string(i) + ", 'a name that takes some room in the pages', 0.25)");
        c->CommitTrans();
    }
    std::string Copy() const { return (store.Folder() / "copy.mdb").string(); }
    TestStore store;
    ConnectionPtr c = store.Connect();
};

TEST_F(MaintenanceTest, ACopyIsOfOneMomentAndOpensWithThePassword) {
    const ConnectionPtr other = store.Connect();
    {
        const Snapshot moment(*c);
        other->Execute("Delete From tb_Ledger2001");
        const auto sums = SumTables(*c);
        ASSERT_EQ(sums.size(), 4u);
        EXPECT_EQ(sums[1].name, "Small");
        EXPECT_EQ(sums[2].rows, 300);
        EXPECT_EQ(sums[2].sums.at("LedgerDrAmt"), "75");
        EXPECT_EQ(sums[2].sums.at("LedgerName"), "12000");
        BackUp(*c, Copy());
    }
    EXPECT_EQ(Rows(c, "Select LedgerTrnNo From tb_Ledger2001"), "");
    EXPECT_EQ(ErrorOf([&] { BackUp(*c, Copy()); }), error::BadArgument);

    Connection copy;
    copy.Properties("Data Source") = Copy();
    EXPECT_EQ(ErrorOf([&] { copy.Open(); }), error::WrongPassword);
    copy.Properties("Jet OLEDB:Database Password") = TestStore::password;
    copy.Open();
    EXPECT_TRUE(CheckIntegrity(copy).empty());
    EXPECT_EQ(SumTables(copy)[2].rows, 300);
}

TEST_F(MaintenanceTest, ACopyThatFailsLeavesNothing) {
    QM_FILE_ONLY("copied as a file");
    EXPECT_NE(ErrorOf([&] { BackUp(*c, (store.Folder() / "no" / "such" / "folder").string()); }), 0);
    c->Close();
    store.Flip(10 * 1024 + 100);
    c->Open();
    EXPECT_EQ(ErrorOf([&] { BackUp(*c, Copy()); }), error::Damaged);
    EXPECT_FALSE(std::filesystem::exists(Copy()));
    EXPECT_FALSE(CheckIntegrity(*c).empty());
}

}  // namespace
}  // namespace ado
