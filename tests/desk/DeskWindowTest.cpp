#include <QComboBox>
#include <QMenu>
#include <QPushButton>

#include "core/DBCode.h"
#include "core/Screens.h"
#include "core/modGeneral.h"
#include "desk/Books.h"
#include "desk/Cures.h"
#include "desk/DeskWindow.h"
#include "desk/ScreenList.h"
#include "tests/desk/DeskFixture.h"

namespace {

using test::DeskTest;

TEST_F(DeskTest, EachScreenOfTheModuleOpensByItsKeyFromAnyPage) {
    Start();
    std::vector<std::string> listed;
    for (const desk::Screen& screen : desk::ScreenList()) {
        listed.push_back(screen.Form);
        script.Modal(screen.Form);
        const QKeyCombination keys = QKeySequence(screen.Key)[0];
        Key(keys.key(), keys.keyboardModifiers());
        EXPECT_EQ(script.LeftOver(), 0u) << screen.Form << " by " << screen.Key;
    }
    EXPECT_THAT(listed, testing::UnorderedElementsAreArray(qm::ScreenNames()));
    EXPECT_EQ(Told(), "nothing");
}

TEST_F(DeskTest, AYearIsSwitchedOnlyWhenWhatFollowsHasBeenReadAndTaken) {
    books.Host().SetFinancialYear("2002-2003");
    books.Host().SetGetFinancialYear("2001");
    Start();
    auto& years = *desk->findChild<QComboBox*>("year");
    const auto choose = [&] {
        years.setFocus();
        Key(Qt::Key_Down);
    };
    choose();
    EXPECT_THAT(Told(), testing::StartsWith("Make 2002-2003 the current year?"));
    EXPECT_EQ(years.currentText(), "2001-2002");
    Key(Qt::Key_Escape);
    EXPECT_EQ(test::FreshBooks::One("Select Fnncl_Yr From Fnncl_Yr_Mstr Where Crrnt_Yr_Flg"), "2001-2002");
    choose();
    Key(Qt::Key_Space);
    EXPECT_EQ(years.currentText(), "2002-2003");
    EXPECT_EQ(qm::shared().FinYear, "2002");
    EXPECT_EQ(test::FreshBooks::One("Select Fnncl_Yr From Fnncl_Yr_Mstr Where Crrnt_Yr_Flg"), "2002-2003");
}

// Space would have gone to the year that another host has made the current one.
TEST_F(DeskTest, AMessageThatComesByItselfLeavesTheKeysWhereTheyAre) {
    books.Host().SetFinancialYear("2002-2003");
    books.Host().SetGetFinancialYear("2001");
    Start();
    desk->Go("vouchers");
    Press({"Ctrl+F", "'re"});
    for (const char* const set : {"False Where Fnncl_Yr = '2001-2002'", "True Where Fnncl_Yr = '2002-2003'"})
        test::FreshBooks::Run(std::string("Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg = ") + set);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Told().starts_with("The current year of these books"); }));
    Press({"'nt "});
    EXPECT_EQ(Child<QLineEdit>("words").text(), "rent ");
    EXPECT_EQ(qm::shared().FinYear, "2001");
    Press({"Alt+0", "Right", "Space"});  // Stay
    EXPECT_EQ(Told(), "nothing");
    EXPECT_EQ(desk->focusWidget(), &Child<QLineEdit>("words"));
}

// What a screen wrote into a file that was taken away would be lost.
TEST_F(DeskTest, BooksThatAreTakenAwayAreToldUntilTheyAreBackOrOthersAreOpenedByAKey) {
    Start();
    if (desk->Books().OnServer()) GTEST_SKIP() << "a server keeps its files to itself";
    const std::filesystem::path file = books.DataPath() + qm::BooksFile, aside = settings / "aside.mdb";
    const auto told = testing::HasSubstr("were taken away or replaced while they were open");
    const auto lose = [&] {
        std::filesystem::rename(file, aside);
        ASSERT_TRUE(QTest::qWaitFor([&] { return testing::Matches(told)(Told()); })) << Told();
    };
    lose();
    std::filesystem::rename(aside, file);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Told() == "The books can be read again."; })) << Told();
    lose();
    Key(Qt::Key_F2);  // no screen, or the script would fail
    EXPECT_THAT(Told(), told);
    std::filesystem::copy(aside, file);
    Key(Qt::Key_Space);
    EXPECT_EQ(Told(), "nothing");
    script.Modal("frmVoucher");
    Key(Qt::Key_F2);
    EXPECT_EQ(script.LeftOver(), 0u);
}

TEST_F(DeskTest, AnAddressNeedsNoSlashAtItsEnd) {
    Start();
    const std::string address = books.DataPath();
    desk->OpenBooks(address.substr(0, address.size() - 1));
    EXPECT_EQ(Told(), "nothing");
    EXPECT_EQ(Title(), "Overview");
    EXPECT_THAT(address, testing::EndsWith(desk->Books().Name().toStdString() + "/"));
}

TEST_F(DeskTest, AFailureIsToldInTheBarWithItsCauseAndCure) {
    Start();
    desk->OpenBooks("/nowhere");
    EXPECT_THAT(Told(),
                testing::AllOf(testing::HasSubstr("Could not find the books file '/nowhere/QmAccount.mdb'."),
                               testing::HasSubstr("What to do: correct dataPath, or lay down books")));
    EXPECT_EQ(Title(), "Overview");  // of the books from before
    desk->Try([] { throw basic::Error(5, "cannot write a.csv: full", "basic"); });
    EXPECT_THAT(Told(), testing::HasSubstr("or is not there; what bore the name stands as it was."));
    desk->Books().Close();
    desk->OpenBooks("/nowhere");
    EXPECT_THAT(Told(), testing::HasSubstr("Could not find the books file"));
    EXPECT_EQ(Title(), "none");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Told(), "nothing");
    Key(Qt::Key_F1);
    EXPECT_EQ(Title(), "Manual");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Title(), "none");
}

// Each page may hold rows of a long list.
TEST_F(DeskTest, OfTheWaysBackOnlyTheLastAreKept) {
    Start();
    for (int way = 0; way < 200; ++way) {
        desk->Push(new desk::Page(*desk, "Page " + QString::number(way)));
        desk->Go(way % 2 == 0 ? "screens" : "books");
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_LT(desk->findChildren<QWidget*>("pageHead").size(), 60);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Title(), "Page 199");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Title(), "Screens");
}

// What a menu or a list asks for goes by the bar as well.
TEST_F(DeskTest, BooksThatFailWhileAChipOrTheYearIsOpenedAreToldOf) {
    Start();
    desk->Go("vouchers");
    desk->Books().Reading().Cancel();
    EXPECT_NO_THROW(Q_EMIT Child<QMenu>("ledger").aboutToShow());
    EXPECT_THAT(Told(), testing::StartsWith("The question was cancelled."));
    qm::Conn().Close();
    EXPECT_NO_THROW(Q_EMIT desk->findChild<QComboBox*>("year")->activated(0));
    EXPECT_THAT(Told(), testing::HasSubstr("closed"));
}

}  // namespace
