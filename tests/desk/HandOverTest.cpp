#include <QClipboard>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
#include <clocale>
#include <future>

#include "desk/Books.h"
#include "tests/desk/DeskFixture.h"
#include "tests/desk/DialogUser.h"

namespace {

using HandOverTest = test::DeskTest;

TEST_F(HandOverTest, AHeadSortsAndWhatIsCopiedIsWhatIsShown) {
    StartOnVouchers();
    auto& header = *dynamic_cast<QTableView&>(Sheet().View()).horizontalHeader();
    const auto click = [&](int section) {
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(section) + 20, header.height() / 2});
    };
    click(4);
    click(4);  // the greatest debit first
    ASSERT_TRUE(QTest::qWaitFor([this] { return Line(0).find("|95,000.00|") != std::string::npos; }))
        << Line(0);
    header.setSectionHidden(2, true);
    header.moveSection(header.visualIndex(4), 0);
    QTest::mouseClick(Sheet().View().viewport(), Qt::LeftButton, {}, {40, 10});
    Key(Qt::Key_C, Qt::ControlModifier);
    const QString text = QApplication::clipboard()->text();
    EXPECT_EQ(text.section('\n', 0, 0).toStdString(), "Debit\tDate\tVoucher\tLedger\tCredit\tNarration");
    EXPECT_EQ(text.section('\n', 1, 1).section('\t', 0, 0).toStdString(), "95000.00");
}

TEST_F(HandOverTest, TheLinesAndOneVoucherGoToPaperAndTheLinesToFiles) {
    StartOnVouchers();
    EXPECT_EQ(DialogOf(Qt::Key_P, Qt::ControlModifier), "Print");
    EXPECT_EQ(DialogOf(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier), "Print");
    EXPECT_EQ(Told(), "nothing");
    const auto written = [this](desk::SheetFile kind, const char* name) {
        const std::filesystem::path file = settings / name;
        Sheet().Save(kind, QString::fromStdString(file.string()));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Told() == "Written: " + file.string(); })) << Told();
        return test::Bytes(file);
    };
    EXPECT_THAT(written(desk::SheetFile::Csv, "a.csv"),
                testing::StartsWith("date,voucher,type,ledger,debit,credit,narration\r\n2001-04-02,1,"));
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr),
                 "C");  // a spreadsheet's figures bear a point in every language
    EXPECT_THAT(written(desk::SheetFile::Workbook, "a.xlsx"), testing::StartsWith("PK"));
    EXPECT_THAT(written(desk::SheetFile::Pdf, "a.pdf"), testing::StartsWith("%PDF"));
    // A name that was typed without its end.
    test::DialogUser user;
    user.Will({"'" + (settings / "a").string(), "Escape"});
    for (QAction* const action : desk->Shown()->findChildren<QAction*>())
        if (action->text().startsWith("&CSV")) action->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return user.Done(); }));
    EXPECT_THAT(user.Asked(), testing::EndsWith("a.csv stands there already. Is it to be replaced?"));
}

// The thread that writes files is held up as by a million lines.
TEST_F(HandOverTest, AFileIsWrittenWhateverIsLookedAtMeanwhileUnlessItIsCancelled) {
    StartOnVouchers();
    const auto hold = [this](std::future<void>& until) {
        desk->Books().Writer().Start(
            *desk, [&until](queries::Reading&, desk::Worker::Job&) { until.wait(); },
            [](std::exception_ptr) {});
    };
    const std::filesystem::path file = settings / "a.csv";
    const auto save = [&] { Sheet().Save(desk::SheetFile::Csv, QString::fromStdString(file.string())); };
    for (const bool cancelled : {true, false}) {
        std::promise<void> go;
        std::future<void> gone = go.get_future();
        hold(gone);
        save();
        Key(Qt::Key_F, Qt::ControlModifier);
        Type(cancelled ? "rent" : " shop");
        WaitForTotals("24 lines");
        Key(Qt::Key_3, Qt::AltModifier);
        auto& jobs = *desk->findChild<QWidget*>("fileJobs");
        auto& cancel = *jobs.findChildren<QWidget*>(Qt::FindDirectChildrenOnly).back();
        ASSERT_TRUE(QTest::qWaitFor([&] { return cancel.isVisible(); }));
        QWidget* const worked = desk->focusWidget();
        cancel.findChild<QPushButton*>("cancelJob")->setFocus();
        if (cancelled) Key(Qt::Key_Space);
        go.set_value();
        bool ended = false;
        desk->Books().Writer().Start(
            *desk, [](queries::Reading&, desk::Worker::Job&) {}, [&](std::exception_ptr) { ended = true; });
        ASSERT_TRUE(QTest::qWaitFor([&] { return ended; }));
        EXPECT_EQ(std::filesystem::exists(file), !cancelled);
        EXPECT_EQ(desk->focusWidget(), worked);
        EXPECT_EQ(Told(), cancelled ? "nothing" : "Written: " + file.string());
        Key(Qt::Key_2, Qt::AltModifier);
    }
}

TEST(FileNameTest, AFileIsNamedByItsTitleWithoutWhatNoNameBears) {
    EXPECT_EQ(desk::FileNameOf("M/s Rao: \"North\" *, 2001-2002", desk::SheetFile::Workbook).toStdString(),
              "M-s Rao- -North- -.xlsx");
    const std::string longest(255, 'W');
    EXPECT_EQ(desk::FileNameOf(longest, desk::SheetFile::Csv).toStdString(), longest.substr(0, 60) + ".csv");
}

}  // namespace
