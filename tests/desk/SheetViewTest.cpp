#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QToolTip>
#include <atomic>
#include <memory>

#include "desk/RowsView.h"
#include "queries/GroupTree.h"
#include "tests/desk/DeskFixture.h"

namespace {

class SheetViewTest : public test::DeskTest {
  protected:
    // The words that stand in place of rows.
    std::string Empty() {
        for (const auto* const label : desk->Shown()->findChildren<QLabel*>("emptyTitle"))
            if (label->isVisible()) return label->text().toStdString();
        return "rows";
    }
};

// A sheet that reads by window fails when its rows are first counted, as where a server has gone.
TEST_F(SheetViewTest, ASheetThatCannotBeCountedNeverStandsBehindTheView) {
    struct Uncounted final : queries::Sheet {
        const std::string& Title() const override { return title; }
        const std::vector<queries::Column>& Columns() const override { return columns; }
        std::size_t Rows() const override { throw basic::Error(5, "gone", "test"); }
        basic::Value At(std::size_t, std::size_t) const override { return {}; }
        std::string title;
        std::vector<queries::Column> columns;
    };
    StartOnVouchers();
    Sheet().Ask([](queries::Reading&) { return std::make_shared<Uncounted>(); });
    EXPECT_EQ(Told(), "gone");
    EXPECT_EQ(Empty(), "This was not read to its end");
}

TEST_F(SheetViewTest, WhyThereAreNoRowsStandsThereAgainAfterATurnOfTheTabs) {
    Start();
    desk->Go("stock");
    ASSERT_TRUE(QTest::qWaitFor([this] { return Empty() == "There are no items yet"; })) << Empty();
    Key(Qt::Key_PageDown, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Empty() == "Nothing has moved in this year"; })) << Empty();
    Key(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Empty(), "There are no items yet");
}

// The rows of the question before would stand below the words of the new one.
TEST_F(SheetViewTest, AQuestionThatGetsNoAnswerShowsNoOldRowsAndCanBeAskedAgain) {
    FillWithSample();
    Start();
    desk->Go("ledgers");
    WaitForTotals("rows");
    desk::SheetView& view = Sheet();
    const queries::Sheet* const before = view.Sheet();
    const auto ends = std::make_shared<std::atomic<bool>>(false);
    view.AskSlowly([ends](queries::Reading& reading, desk::Worker::Job& job) -> desk::SheetView::SheetPtr {
        for (std::size_t step = 0; !*ends; ++step) job.Step(step);
        reading.Select("Select Nothing From Nowhere");
        return {};
    });
    auto* const cancel = view.findChild<QPushButton*>("cancelJob");
    ASSERT_TRUE(QTest::qWaitFor([&] { return cancel->isVisible(); }));
    EXPECT_EQ(view.Sheet(), before);  // until then they stand
    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_EQ(Empty(), "This was not read to its end");
    Press({"Ctrl+K", "'x", "Escape"});
    EXPECT_EQ(desk->focusWidget()->objectName(), "emptyTitle");
    Key(Qt::Key_C, Qt::ControlModifier);
    Key(Qt::Key_P, Qt::ControlModifier);
    *ends = true;
    Key(Qt::Key_F5);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Told().find("Nowhere") != std::string::npos; })) << Told();
    EXPECT_EQ(Empty(), "This was not read to its end");
}

// Else a list that takes longer than the pause between two changes would show none of them.
TEST_F(SheetViewTest, AnAnswerThatIsOnItsWayComesThoughTheBooksChangeMeanwhile) {
    FillWithSample();
    Start();
    desk->Go("ledgers");
    WaitForTotals("rows");
    int answers = 0;
    const auto asked = std::make_shared<std::atomic<int>>(0);
    const auto ends = std::make_shared<std::atomic<bool>>(false);
    Sheet().Filled = [&answers] { ++answers; };
    Sheet().AskSlowly([asked, ends](queries::Reading& reading, desk::Worker::Job& job) {
        ++*asked;
        for (std::size_t step = 0; !*ends; ++step) job.Step(step);
        return queries::GroupTreeSheet(reading);
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return *asked == 1; }));
    for (int change = 0; change < 3; ++change) Key(Qt::Key_F5);
    *ends = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers == 2; })) << answers;
    EXPECT_EQ(*asked, 2);
}

TEST_F(SheetViewTest, ACellThatHasNoRoomForItsTextTellsItWhereTheMouseRests) {
    StartOnVouchers();
    QAbstractItemView& view = Sheet().View();
    constexpr int Ledger = 3;
    const auto tip = [&view](int column) {
        const QPoint at = view.visualRect(view.model()->index(0, column)).center();
        QHelpEvent rest(QEvent::ToolTip, at, view.viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(view.viewport(), &rest);
        return QToolTip::text();
    };
    desk::HeaderOf(view).resizeSection(Ledger, 40);
    const QString name = view.model()->index(0, Ledger).data().toString();
    EXPECT_EQ(tip(Ledger), Qt::convertFromPlainText(name)) << tip(Ledger).toStdString();
    desk::HeaderOf(view).resizeSection(Ledger, 400);
    tip(Ledger);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000));
}

}  // namespace
