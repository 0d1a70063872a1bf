#include <filesystem>

#include "core/DBCode.h"
#include "desk/ImportPage.h"
#include "tests/desk/BooksFixture.h"

namespace {

class ImportPageTest : public test::BooksTest {
  protected:
    // The table of faults, or that of the rows below it.
    desk::SheetView& View(bool faults) {
        for (auto* const view : desk->Shown()->findChildren<desk::SheetView*>("sheet"))
            if ((view->View().objectName() == "faults") == faults) return *view;
        throw std::runtime_error("no such table is shown");
    }
    std::string Marked(bool faults) {
        const QModelIndex at = View(faults).View().currentIndex();
        return at.siblingAtColumn(0).data().toString().toStdString() + "|" +
               at.siblingAtColumn(1).data().toString().toStdString();
    }
    bool HasFocus(bool faults) { return desk->focusWidget() == &View(faults).View(); }
};

TEST_F(ImportPageTest, EachKindIsShownBroughtInAndOnTheOtherPagesAtOnce) {
    StartOnBooks();
    const std::string header = "voucher,date,type,side,ledger,amount,narration\n";
    const struct {
        const char* Key;
        std::string Text, Row, Told, Question, Answer;
    } cases[] = {
        {"Alt+L", "\xEF\xBB\xBFname,group,opening,side\nHill School,Debtors,10,D\n", "2|Hill School",
         "Imported: 1 ledger. The openings of 2001 differ: debit ",
         "Select Sum(1) From Ledger_Master Where Name = 'Hill School'", "1"},
        {"Alt+I", "item_name,type\nGlue,Material\n", "2|Glue", "Imported: 1 item.",
         "Select Sum(1) From ItemMaster2001 Where Item_Name = 'Glue'", "1"},
        {"Alt+O", "ledger,opening,side\nHill School,25,C\n", "2|Hill School",
         "Imported: 1 opening. The openings",
         "Select Opening_Bal, Bal_Type From Ledger_Details, Ledger_Master Where Ledger_Details.Ledger_ID = "
         "Ledger_Master.Ledger_ID And Name = 'Hill School'",
         "25|C"},
        {"Alt+U", header + "7,01-Apr-2001,R,D,Cash,5,n\n7,01-Apr-2001,R,C,Hill School,5,n\n", "2|7",
         "Imported: 1 voucher, 2 rows.", "Select Sum(1) From tb_Ledger2001", "144"},
        {"Alt+J", "2001-04-02 Shop\n  Cash  6\n  Hill School\n", "2|2001-04-02",
         "Imported: 0 new ledgers, 0 changed openings, 1 voucher, 2 rows. The openings",
         "Select Sum(1) From tb_Ledger2001", "146"},
    };
    desk->Go("vouchers");
    for (const auto& [key, text, row, told, question, answer] : cases) {
        SCOPED_TRACE(told);
        desk->Go("books");
        Do(key, {"'" + File("file", text)});
        ASSERT_TRUE(QTest::qWaitFor([&] { return Title().starts_with("Import of "); })) << Told();
        EXPECT_EQ(Marked(false), row);
        Key(Qt::Key_Return);
        Expect(told);
        EXPECT_EQ(Title(), "Books");
        EXPECT_EQ(test::FreshBooks::One(question), answer);
    }
    desk->Go("vouchers");
    WaitForTotals("146 lines");
    desk->Go("books");
    Do("Alt+J", {"'" + (folder / "file").string()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return Title() == "Import of journal"; }));
    EXPECT_THAT(Child<QLabel>("status").text().toStdString(),
                testing::HasSubstr("But every voucher of the file stands in the books already"));
}

TEST_F(ImportPageTest, EnterGoesFromAFaultToItsRowAndBackAndAMendedFileIsCheckedAgain) {
    StartOnBooks();
    std::string text = "name,group,opening,side\n";
    for (int row = 2; row < 40; ++row) text += "P" + std::to_string(row) + ",Debtors,1,D\n";
    const std::string file = File("ledgers.csv", text + "Hill,Nobody,1,D\nDale,Debtors,1,X\n");
    Do("Alt+L", {"'" + file});
    ASSERT_TRUE(QTest::qWaitFor([&] { return Title() == "Import of ledgers"; }));
    EXPECT_EQ(View(true).TotalsText().toStdString(), "2 faults");
    EXPECT_EQ(Marked(true), "40|group");
    EXPECT_FALSE(View(false).Buttons()->isVisible());  // over the rows
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_TRUE(HasFocus(false));
    EXPECT_EQ(Marked(false), "41|side: 'X' is neither debit nor credit");
    Key(Qt::Key_Up);
    Key(Qt::Key_Return);
    EXPECT_TRUE(HasFocus(true));
    EXPECT_EQ(Marked(true), "40|group");
    File("ledgers.csv", text);
    Key(Qt::Key_C, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Child<QLabel>("cardTitle").text() == "38 ledgers, no fault"; }));
    std::filesystem::remove(file);
    Key(Qt::Key_C, Qt::AltModifier);
    Expect("ledgers.csv' cannot be read\nWhy: ");
    EXPECT_EQ(Title(), "Import of ledgers");
    Key(Qt::Key_Escape);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Title(), "Books");
}

TEST_F(ImportPageTest, BooksThatWereTakenAwayMeanwhileGetNothing) {
    StartOnBooks();
    if (desk->Books().OnServer()) GTEST_SKIP() << "a server keeps its files to itself";
    Do("Alt+L", {"'" + File("ledgers.csv", "name,group,opening,side\nHill,Debtors,1,D\n")});
    ASSERT_TRUE(QTest::qWaitFor([&] { return Title() == "Import of ledgers"; }));
    std::filesystem::rename(place + qm::BooksFile, folder / "away.mdb");
    Do("Return", {});
    Expect("were taken away or replaced while they were open");
    EXPECT_EQ(test::FreshBooks::One("Select Sum(1) From Ledger_Master Where Name = 'Hill'"), "Null");
}

TEST_F(ImportPageTest, CancelOfALongImportWritesNothingAndItGoesAgain) {
    StartOnBooks();
    const auto count = [] { return test::FreshBooks::One("Select Sum(1) From Ledger_Master"); };
    const std::string before = count();
    std::string text = "name,group,opening,side\n";
    for (int row = 0; row < 4000; ++row) text += "P" + std::to_string(row) + ",Debtors,1,D\n";
    Do("Alt+L", {"'" + File("ledgers.csv", text)});
    ASSERT_TRUE(QTest::qWaitFor([&] { return Title() == "Import of ledgers"; }));
    Do("Return", {"Escape"});
    Expect("Cancelled. Nothing of ledgers.csv was imported.");
    EXPECT_EQ(count(), before);
    Do("Return", {});
    Expect("Imported: 4000 ledgers.");
    EXPECT_EQ(count(), std::to_string(std::stoi(before) + 4000));
}

}  // namespace
