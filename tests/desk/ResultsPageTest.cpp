#include <QHeaderView>
#include <QScrollBar>

#include "tests/desk/DeskFixture.h"
#include "vouchers/frmVoucher.h"

namespace {

using ResultsPageTest = test::DeskTest;

// From a figure of the balance sheet to the voucher that made it and back, by keys alone.
TEST_F(ResultsPageTest, LeadFromAFigureToItsVoucherAndBackToTheSameRow) {
    FillWithSample();
    Start();
    desk->Go("results");
    WaitForTotals("44 rows, Opening 0.00, Debit 1,696,306.15, Credit 1,696,306.15");
    Key(Qt::Key_B, Qt::AltModifier);
    WaitForTotals("26 rows");
    Type("trial office");
    EXPECT_EQ(CurrentLine(), "Trial Office Supplies|84,902.00|");
    Key(Qt::Key_Return);
    EXPECT_EQ(Title(), "Trial Office Supplies");
    EXPECT_THAT(Sheet().TotalsText().toStdString(), testing::EndsWith("Balance 84,902.00"));
    for (int i = 0; i < 2; ++i) Key(Qt::Key_Down);
    script.Modal("frmVoucher", [](forms::Form& form) {
        EXPECT_NE(static_cast<qm::frmVoucher&>(form).ui().txtVoucherNo->Text(), "<New>");
    });
    Key(Qt::Key_Return);
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(CurrentLine(), "Trial Office Supplies|84,902.00|");
    EXPECT_EQ(desk->focusWidget(), &Sheet().View());
}

TEST_F(ResultsPageTest, AMonthAndTheMonthsBesideEachOtherComeByTheChips) {
    FillWithSample();
    Start();
    desk->Go("results");
    Key(Qt::Key_R, Qt::AltModifier);
    WaitForTotals("12 rows");
    EXPECT_FALSE(Choices("beside")[1]->isEnabled());  // of the year before these books know nothing
    Choices("beside")[2]->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Sheet().View().model()->columnCount() == 14; }));
    // Names are read whole, and what stands below the columns goes along with them.
    QAbstractItemView& months = Sheet().View();
    EXPECT_GE(months.findChild<QHeaderView*>()->sectionSize(0), months.sizeHintForColumn(0));
    struct : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            seen |= event->type() == QEvent::Paint;
            return false;
        }
        bool seen = false;
    } painted;
    QCoreApplication::processEvents();
    Sheet().findChild<QWidget*>("totals")->installEventFilter(&painted);
    months.horizontalScrollBar()->setValue(50);
    EXPECT_TRUE(QTest::qWaitFor([&] { return painted.seen; }));
    Sheet().findChild<QWidget*>("totals")->removeEventFilter(&painted);
    Choices("period")[3]->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Sheet().View().model()->columnCount() == 3; }));
    EXPECT_EQ(Sheet().Sheet()->Columns()[1].caption, "May-2001");
    Choices("beside")[0]->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Sheet().Sheet()->Columns()[1].caption == "Debit"; }));
    EXPECT_EQ(Sheet().Sheet()->Title(), "Trading Account, 01-May-2001 to 31-May-2001");
    const int rows = static_cast<int>(Sheet().Sheet()->Rows());
    EXPECT_EQ(basic::TextOrEmpty(Sheet().Sheet()->At(static_cast<std::size_t>(rows) - 1, 0)), "Total");
}

}  // namespace
