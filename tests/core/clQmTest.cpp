#include <csignal>
#include <cstdlib>
#include <optional>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "core/clQm.h"
#include "core/modGeneral.h"
#include "platform/basic/Dates.h"
#include "tests/support/BoxScript.h"
#include "tests/support/FreshBooks.h"

namespace {

using Lines = std::vector<std::string>;

Lines Names(const ado::RecordsetPtr& rows) {
    Lines names;
    for (; !rows->Eof(); rows->MoveNext()) names.push_back(basic::ToText((*rows)["Name"]));
    return names;
}

TEST(ClassState, DataPathOpensAtOnceAndOutlivesTheInstance) {
    test::FreshBooks books;
    EXPECT_EQ(qm::Conn().State(), ado::adStateOpen);
    books.CloseHost();
    EXPECT_EQ(qm::shared().Connection, nullptr);
    EXPECT_EQ(qm::shared().DataPath, books.DataPath());
    EXPECT_EQ(qm::shared().FinYear, "2001");
    qm::clQm next;
    EXPECT_EQ(next.dataPath(), books.DataPath());
    next.dataPath("   ");  // blanks are kept and open nothing
    EXPECT_EQ(next.dataPath(), "   ");
    EXPECT_EQ(qm::shared().Connection, nullptr);
}

// No room for a file to grow from here on. The signal would end the process before the library sees the
// error.
void FillUpDisk(const std::string& file) {
    std::signal(SIGXFSZ, SIG_IGN);
    const auto size = static_cast<rlim_t>(std::filesystem::file_size(file));
    const rlimit limit{size, size};
    setrlimit(RLIMIT_FSIZE, &limit);
}

// Releasing the class never ends the host's process, and what was written stays in the books' log.
TEST(ClassState, AFullDiskAtTheEndOfTheInstanceLeavesTheHostAlive) {
    test::FreshBooks books;
    books.CloseHost();
    const auto writeAndRelease = [&] {
        std::optional<qm::clQm> host(std::in_place);
        host->dataPath(books.DataPath());
        for (int i = 0; i < 200; ++i)
            books.Run("Insert Into tblError (frmName, ErrDesc) Values ('x', '" + std::string(900, 'y') +
                      "')");
        FillUpDisk(books.DataPath() + "QmAccount.mdb");
        host.reset();
        std::_Exit(qm::shared().Connection == nullptr ? 0 : 1);
    };
    EXPECT_EXIT(writeAndRelease(), testing::ExitedWithCode(0), "");
    books.OpenHost();
    EXPECT_EQ(books.One("Select Sum(1) As Written From tblError"), "200");
}

TEST(ClassState, PathAndNameRunTogetherAndAFailedOpenIsRaised) {
    test::TempFolder folder;
    qm::clQm host;
    try {
        host.dataPath(folder.Path().string());
        ADD_FAILURE() << "opened a file that is not there";
    } catch (const basic::Error& error) {
        EXPECT_NE(error.Description.find(folder.Path().string() + "QmAccount.mdb"), std::string::npos);
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    qm::shared() = {};
}

TEST(ClassState, FirstRunSeedsTheYearAndASecondStartReadsItAgain) {
    test::FreshBooks books(std::nullopt);
    EXPECT_EQ(books.Rows("Select Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr"), Lines{"2001-2002|True"});
    EXPECT_EQ(books.Rows("Select * From tb_Ledger2001"), Lines{});
    books.Run("Update Fnncl_Yr_Mstr Set Fnncl_Yr = '2005-2006'");
    const ado::ConnectionPtr before = qm::shared().Connection;
    books.Host().StartDataConn();
    EXPECT_EQ(qm::shared().FinYear, "2005");
    EXPECT_EQ(qm::shared().Connection, before);
}

TEST(ClassState, ALostFlagFailsAtTheTableWithTheRowInserted) {
    test::FreshBooks books;
    books.Run("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = False");
    EXPECT_NE(test::ErrorOf([&] { books.Host().StartDataConn(); }), 0);
    EXPECT_EQ(qm::shared().FinYear, "2001");  // never read again
    EXPECT_EQ(books.Rows("Select Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr"),
              (Lines{"2001-2002|False", "2001-2002|True"}));
}

TEST(ClassState, WithoutAConnectionCallsRaiseOrLog) {
    qm::shared() = {};
    qm::clQm host;
    EXPECT_THROW(host.GetSuppliers(), basic::Error);
    EXPECT_THROW(host.GetNextTrnID(), basic::Error);
    test::BoxScript boxes;
    boxes.ExpectLog("Class-ClQm", "The record set has no connection");
    EXPECT_FALSE(host.InsertVoucher(1, 1, "J", "D", "", 1, 1, "A"));
}

TEST(HostQueries, TheListsDifferOnPurpose) {
    test::FreshBooks books;
    qm::clQm& host = books.Host();
    for (const auto& [name, group] :
         std::vector<std::pair<std::string, std::string>>{{"Zeta", "Suppliers"},
                                                          {"Old Supplier", "Suppliers"},
                                                          {"Debtor", "Debtors"},
                                                          {"Till", "Cash In Hand"},
                                                          {"Savings", "Bank"},
                                                          {"Freight In", "Income(Direct)"},
                                                          {"Goods", "Purchase"},
                                                          {"Counter", "Sales"}})
        books.AddLedger(name, group);
    const int elsewhere = books.AddLedger("No row this year", "Suppliers");
    books.Run("Delete From Ledger_Details Where Ledger_ID = " + std::to_string(elsewhere));
    books.Run("Update Ledger_Master Set Deleted = True Where Name = 'Old Supplier'");

    const ado::RecordsetPtr suppliers = host.GetSuppliers();
    EXPECT_EQ(basic::ToText((*suppliers)["Deleted"]), "False");
    EXPECT_EQ(Names(suppliers), (Lines{"Zeta", "Old Supplier", "Debtor"}));
    EXPECT_EQ(Names(host.GetPurchaseLedgers()), Lines{"Goods"});
    EXPECT_EQ(Names(host.GetDebitLedgers()), (Lines{"Till", "Savings", "Freight In"}));
    EXPECT_EQ(Names(host.GetCreditLedgers()), Lines{"Counter"});
    EXPECT_EQ(Names(host.Ledgers("  ")).size(), 9U);
    EXPECT_EQ(Names(host.Ledgers("PrimaryGrp = 'suppliers'")), (Lines{"Zeta", "Old Supplier"}));
    EXPECT_THROW(host.Ledgers("no such thing"), basic::Error);
}

TEST(HostQueries, AYearHasBothItsEndsAndOverflows) {
    qm::clQm host;
    const struct {
        basic::Date date;
        bool inside;
    } cases[] = {{basic::MakeDate(2001, 3, 31), false},
                 {basic::MakeDate(2001, 4, 1), true},
                 {basic::Date{basic::MakeDate(2002, 3, 31).Serial + 0.9}, true},
                 {basic::MakeDate(2002, 4, 1), false}};
    for (const auto& c : cases) EXPECT_EQ(host.FinYearValidate(c.date, 2001), c.inside) << c.date.Serial;
    const basic::Date day = basic::MakeDate(2001, 4, 1);
    EXPECT_EQ(test::ErrorOf([&] { host.FinYearValidate(day, 32767); }), basic::error::Overflow);
    EXPECT_EQ(test::ErrorOf([&] { host.FinYearValidate(day, 9999); }), basic::error::TypeMismatch);
}

}  // namespace
