#include <QTextBlock>
#include <QTextBrowser>
#include <csignal>
#include <deque>

#include <sys/resource.h>

#include "host/make/Books.h"
#include "tests/desk/BooksFixture.h"

namespace {

class BooksPageTest : public test::BooksTest {
  protected:
    ~BooksPageTest() override {
        if (test::OnServer() && !aside.empty())
            test::ServerDatabase::RunOn("postgres", "DROP DATABASE \"" + aside + "\" WITH (FORCE)");
    }
    std::string aside;  // what a restore set aside
};

TEST_F(BooksPageTest, ABackupIsVerifiedToldFromBooksThatMovedOnAndRestored) {
    StartOnBooks();
    const std::string file = folder / "copy.mdb";
    Do("Alt+B", {"'" + file});
    Expect("copy.mdb. 2001-2002: 142 lines, debit ");
    Do("Alt+V", {"'" + file});
    Expect("It holds what the books hold now.");
    test::FreshBooks::Run("Delete From tb_Ledger2001 Where LedgerTrnNo = 1");
    Do("Alt+V", {"'" + file});
    Expect("The books hold something else by now.");
    Do("Alt+R", {"'" + file, "Alt+N"});
    Expect("The books hold something else by now.");
    EXPECT_THAT(user.Asked(), testing::HasSubstr("It holds 2001-2002: 142 lines, "));
    EXPECT_THAT(user.Asked(), testing::HasSubstr("The books hold 2001-2002: 140 lines, "));
    EXPECT_EQ(Lines(), "140");
    Do("Alt+R", {"Return", "Alt+Y"});  // the last one is offered
    Expect("Restored from");
    const std::string told = Told(), mark = "What stood there is now ";
    aside = told.substr(told.find(mark) + mark.size());
    aside.pop_back();
    EXPECT_EQ(Lines(), "142");
    EXPECT_EQ(desk->Books().Address(), place);
}

TEST_F(BooksPageTest, SpreadsheetsThatStandAreReplacedOnlyAfterAQuestion) {
    StartOnBooks();
    const std::string where = folder / "", items = folder / "items-2001-2002.xlsx";
    Do("Alt+E", {"'" + where});
    Expect("5 spreadsheets stand in");
    for (const auto& [answer, begins] : {std::pair{"Alt+N", "mine"}, {"Alt+Y", "PK"}}) {
        File("items-2001-2002.xlsx", "mine");
        Do("Alt+E", {"'" + where, answer});
        ASSERT_TRUE(QTest::qWaitFor([&] { return user.Done(); }));
        EXPECT_THAT(user.Asked(), testing::StartsWith("5 spreadsheets of this year would be replaced."));
        EXPECT_TRUE(QTest::qWaitFor([&] { return test::Bytes(items).starts_with(begins); })) << answer;
    }
}

TEST_F(BooksPageTest, WhatCannotBeDoneIsToldWithItsCauseAndCureAndTheBooksStayOpen) {
    StartOnBooks();
    const std::string other = folder / "other", damaged = folder / "damaged.mdb", stands = folder / "stands";
    host::CreateBooks(other, 2001);
    std::string bytes = test::Bytes(other + "/QmAccount.mdb");
    File("text.mdb", "name,group\n");
    File("damaged.mdb", std::string(bytes).replace(bytes.size() / 2, 4096, std::string(4096, '\0')));
    File("cipher.mdb", bytes.replace(64, 64, std::string(64, '\0')));
    File("stands", "");
    File("items.csv", "item_name,item_type\n");
    File("wide.csv", std::string("\xFF\xFEn\0a\0", 6));
    struct {
        const char* Key;
        std::deque<std::string> Answers;
        std::string Told;
    } const cases[] = {
        {"Alt+V", {"'" + (folder / "text.mdb").string()}, "text.mdb' cannot be restored: The file"},
        {"Alt+V", {"'" + (folder / "cipher.mdb").string()}, "cannot be restored: Not a valid password for"},
        {"Alt+R", {"'" + damaged}, "cannot be restored: "},
        {"Alt+B", {"'" + stands}, "exists; a backup never overwrites"},
        {"Alt+B", {"'/proc/copy.mdb"}, "cannot "},
        {"Alt+N", {"'" + other, "Return"}, "QmAccount.mdb stands there already; nothing was changed"},
        {"Alt+U", {"'" + (folder / "items.csv").string()}, "is that of items, not of vouchers"},
        {"Alt+J", {"'" + (folder / "items.csv").string()}, "is that of items, not of journal"},
        {"Ctrl+O", {"'" + folder.Path().string()}, "Could not find the books file"},
        {"Alt+S", {"'postgresql://localhost:1/none"}, "The server of the books at "},
    };
    for (const auto& [key, answers, told] : cases) {
        SCOPED_TRACE(told);
        desk->Go("books");
        Do(key, answers);
        Expect(told);
        EXPECT_THAT(Told(), testing::ContainsRegex("Why: .* What to do: "));
        EXPECT_EQ(desk->Books().Address(), place);
        EXPECT_EQ(Lines(), "142");
        Key(Qt::Key_Escape);
    }
}

TEST_F(BooksPageTest, ABackupForWhichThereIsNoRoomIsToldAndLeavesNothing) {
    StartOnBooks();
    struct rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit little { 64 << 10, before.rlim_max };
    setrlimit(RLIMIT_FSIZE, &little);
    Do("Alt+B", {"'" + (folder / "copy.mdb").string()});
    Expect("There is no room left on the disk");
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, ignored);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    Do("Alt+B", {"'" + (folder / "copy.mdb").string()});
    Expect("Backed up and compared");
}

TEST_F(BooksPageTest, NewBooksAreOpenedAndThoseFromBeforeAgainFromTheList) {
    StartOnBooks();
    Do("Alt+N", {"'" + (folder / "new").string(), "'2005"});
    Expect("New books for 2005-2006 stand in ");
    EXPECT_EQ(desk->Books().YearInForce(), "2005");
    desk->Go("books");
    Child<QWidget>("recent").setFocus();
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return desk->Books().Address() == place; }));
    EXPECT_EQ(Lines(), "142");
}

TEST_F(BooksPageTest, F1OpensTheManualAtThePagesChapter) {
    StartOnBooks();
    desk->Go("vouchers");
    Key(Qt::Key_F1);
    EXPECT_EQ(Title(), "Manual");
    auto& text = Child<QTextBrowser>("manual");
    ASSERT_TRUE(QTest::qWaitFor([&] { return text.textCursor().block().text() == "Vouchers"; }));
    Key(Qt::Key_Escape);
    EXPECT_EQ(Title(), "Vouchers");
}

}  // namespace
