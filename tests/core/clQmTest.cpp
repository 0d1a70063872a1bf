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
    QM_FILE_ONLY("the limit is one of files");
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

}  // namespace
