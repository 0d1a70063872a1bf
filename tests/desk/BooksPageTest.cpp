#include <QTextBlock>
#include <QTextBrowser>
#include <fstream>

#include "desk/BooksPage.h"
#include "tests/desk/DeskFixture.h"

namespace {

class BooksPageTest : public test::DeskTest {
  protected:
    void StartOnBooks() {
        FillWithSample();
        Start();
        desk->Go("books");
        ASSERT_EQ(Title(), "Books");
    }
    desk::BooksPage& Shown() { return *dynamic_cast<desk::BooksPage*>(desk->Shown()); }
    void WaitForNotice(const char* part) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return Told().find(part) != Told().npos; })) << Told();
    }
    std::string Lines() { return test::FreshBooks::One("Select Sum(1) From tb_Ledger2001"); }
    test::TempFolder folder;
};

TEST_F(BooksPageTest, ABackupIsVerifiedToldFromBooksThatMovedOnAndRestored) {
    StartOnBooks();
    const std::string file = folder / "copy.mdb";
    Shown().BackUp(file);
    WaitForNotice("copy.mdb. 2001-2002: 142 lines, debit ");
    Shown().Verify(file);
    WaitForNotice("It holds what the books hold now.");
    test::FreshBooks::Run("Delete From tb_Ledger2001 Where LedgerTrnNo = 1");
    Shown().Verify(file);
    WaitForNotice("The books hold something else by now.");
    Shown().BackUp(file);
    WaitForNotice("a backup never overwrites\nWhy: a file of that name stands there. What to do: name a new file.");
    EXPECT_NE(Lines(), "142");
    Shown().Restore(file);
    WaitForNotice("Restored from");
    EXPECT_EQ(Lines(), "142");
}

TEST_F(BooksPageTest, AFileWithAFaultIsShownAndWritesNothingAndOneWithoutIsBroughtIn) {
    StartOnBooks();
    const auto write = [&](const char* side) {
        std::ofstream(folder / "ledgers.csv")
            << "name,group,opening,side\nHill School,Debtors,10," << side << "\n";
        Shown().Import("ledgers", folder / "ledgers.csv");
    };
    const auto count = [] {
        return test::FreshBooks::One("Select Sum(1) From Ledger_Master Where Name = 'Hill School'");
    };
    write("X");
    EXPECT_EQ(Title(), "Import of ledgers");
    EXPECT_THAT(Line(0), testing::StartsWith("2|side|"));
    Key(Qt::Key_Escape);
    write("D");
    Key(Qt::Key_Return);
    WaitForNotice("Imported: 1 ledger.");
    EXPECT_EQ(Title(), "Books");
    EXPECT_EQ(count(), "1");
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
