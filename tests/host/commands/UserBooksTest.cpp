// The first start without a folder: what is asked, and what then stands.
#include <cstdlib>

#include <gmock/gmock.h>

#include "core/clQm.h"
#include "host/commands/Sample.h"
#include "host/commands/UserBooks.h"
#include "host/make/Books.h"
#include "platform/basic/Error.h"
#include "tests/support/BoxScript.h"
#include "tests/support/FreshBooks.h"

namespace {

namespace fs = std::filesystem;

class UserBooksTest : public testing::Test {
  protected:
    UserBooksTest() {
        setenv("XDG_DATA_HOME", folder.Path().c_str(), 1);
        setenv("DISPLAY", ":scripted", 1);  // the boxes never reach it
    }
    std::string Question(const std::string& asked) {
        const int year = host::FinancialYearOfToday();
        return "There are no books yet in " + (folder.Path() / "qmaccounts").string() + ".\r\n\r\n" + asked +
               std::to_string(year) + "-" + std::to_string(year + 1);
    }
    void Ask(int sample, int empty) {
        boxes.Expect(Question("Lay down sample books of a small trading firm for ") + ", to look around in?",
                     qm::vbYesNo | qm::vbInformation, sample);
        if (sample == qm::vbNo)
            boxes.Expect(Question("Lay down new, empty books for ") + " instead?",
                         qm::vbYesNo | qm::vbInformation, empty);
    }
    std::size_t Ledgers() {
        qm::clQm books;
        books.dataPath((host::UserBooksFolder() / "").string());
        books.StartDataConn();
        return test::FreshBooks::Rows("Select Ledger_ID From Ledger_Master").size();
    }

    test::TempFolder folder;
    test::BoxScript boxes;
};

TEST_F(UserBooksTest, NothingIsLaidDownUnasked) {
    Ask(qm::vbNo, qm::vbNo);
    EXPECT_FALSE(host::UserBooksStand());
    EXPECT_TRUE(fs::is_empty(folder.Path()));
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    EXPECT_NE(test::ErrorOf(host::UserBooksStand), 0);
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST_F(UserBooksTest, SampleOrNewBooksAreLaidDownOnce) {
    Ask(qm::vbYes, qm::vbNo);
    EXPECT_TRUE(host::UserBooksStand());
    EXPECT_TRUE(host::UserBooksStand());  // asks no more
    EXPECT_EQ(Ledgers(), 28U);
    fs::remove_all(folder.Path() / "qmaccounts");
    Ask(qm::vbNo, qm::vbYes);
    EXPECT_TRUE(host::UserBooksStand());
    EXPECT_EQ(Ledgers(), 0U);
}

TEST_F(UserBooksTest, TheFolderIsTheUsersOwn) {
    EXPECT_EQ(host::UserBooksFolder(), folder.Path() / "qmaccounts");
    setenv("XDG_DATA_HOME", "relative", 1);
    setenv("HOME", folder.Path().c_str(), 1);
    EXPECT_EQ(host::UserBooksFolder(), folder.Path() / ".local/share/qmaccounts");
    unsetenv("HOME");
    EXPECT_NE(test::ErrorOf([] { host::UserBooksFolder(); }), 0);
}

}  // namespace
