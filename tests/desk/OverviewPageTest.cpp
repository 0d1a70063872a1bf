#include <QAction>

#include "desk/BooksCheck.h"
#include "desk/ChartView.h"
#include "tests/desk/DeskFixture.h"

namespace {

class OverviewPageTest : public test::DeskTest {
  protected:
    void StartOnSample() {
        FillWithSample();
        Start();
        ASSERT_EQ(Title(), "Overview");
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Marked().empty(); }));
    }
    std::string Marked() {
        auto* const chart = dynamic_cast<desk::ChartView*>(desk->focusWidget());
        return chart ? chart->MarkedText().toStdString() : "";
    }
    void TabToCard(const QString& name) {
        for (int i = 0; i < 30; ++i) {
            if (auto* const chart = dynamic_cast<desk::ChartView*>(desk->focusWidget());
                chart && chart->accessibleName() == name)
                return;
            Key(Qt::Key_Tab);
        }
        FAIL() << "no chart " << name.toStdString();
    }
};

// By keys alone from each chart to the list behind a figure; the list says what the chart said.
TEST_F(OverviewPageTest, EachFigureOpensWhatItIsMadeOfAndBackIsTheSameFigure) {
    StartOnSample();
    const struct {
        const char *Chart, *Marked, *Title, *Totals;
        int Right, Down;
    } figures[] = {
        {"Cash and bank", "May 2001, Bank: 142,850.50", "Vouchers",
         "3 lines, Debit 46,850.50, Credit 4,500.00", 1, 1},
        {"Sales and purchases", "May 2001, Sales: 56,750.00", "Vouchers",
         "2 lines, Debit 0.00, Credit 56,750.00", 1, 0},
        {"Receipts and payments", "May 2001, Payments: 4,500.00", "Vouchers", "2 lines, Debit 4,500.00", 1,
         1},
        {"Owed and owing by age", "Over 90, Owed to us: 42,152.00", "Parties: Over 90", "Over 90 42,152.00",
         3, 0},
    };
    for (const auto& figure : figures) {
        SCOPED_TRACE(figure.Chart);
        TabToCard(figure.Chart);
        for (int i = 0; i < figure.Right; ++i) Key(Qt::Key_Right);
        for (int i = 0; i < figure.Down; ++i) Key(Qt::Key_Down);
        EXPECT_EQ(Marked(), figure.Marked);
        Key(Qt::Key_Return);
        EXPECT_EQ(Title(), figure.Title);
        WaitForTotals(figure.Totals);
        Key(Qt::Key_Escape);
        EXPECT_EQ(Title(), "Overview");
        EXPECT_EQ(Marked(), figure.Marked);
    }
}

TEST_F(OverviewPageTest, AChartTurnsIntoTheTableOfItsFigures) {
    StartOnSample();
    TabToCard("Sales and purchases");
    Key(Qt::Key_T, Qt::ControlModifier);
    auto* const table = dynamic_cast<QAbstractItemView*>(desk->focusWidget());
    ASSERT_TRUE(table);
    EXPECT_EQ(table->model()->rowCount(), 12);
    EXPECT_EQ(table->model()->index(1, 2).data().toString().toStdString(), "56,750.00");
    Key(Qt::Key_T, Qt::ControlModifier);
    EXPECT_FALSE(Marked().empty());
}

TEST(FindingsTest, AFindingLeadsToTheRecordThatItNames) {
    using desk::FoundRecord;
    const std::pair<const char*, FoundRecord> cases[] = {
        {"voucher 12 of 2001: debit 5, credit 4", {"frmVoucher", "12"}},
        {"voucher 12 of 2002: debit 5, credit 4", {}},
        {"receipt 4 of 2001: has no bill", {"frmReceipt", "4"}},
        {"bill 'B: 7' of receipt 4 in 2001: its voucher 9 does not stand", {"frmReceipt", "4"}},
        {"ledger 7 'Shop Rent': has no leaf in the group tree", {"Ledger_Master", "7"}},
        {"totals of ledger 7 in 2001: they are not the sums of its rows", {"Ledger_Master", "7"}},
        {"details of ledger 7 in 2001: the balance type is '', neither D nor C", {"Ledger_Master", "7"}},
        {"item 3 'Glue' of 2001: counters say received 1", {"ItemMaster", "3"}},
        {"order 5 of 2001: dated 01-Apr-2009, outside the year", {"frmPO", "5"}},
        {"leaf 9 'Rent': has no ledger", {"frmGrpMain", ""}},
        {"years: none is flagged as current", {"frmFinYear", ""}},
        {"file: page 3 is damaged", {}},
    };
    for (const auto& [text, record] : cases) EXPECT_EQ(desk::RecordOf(text, "2001"), record) << text;
}

TEST_F(OverviewPageTest, AChartThatTabComesToIsSeenWhole) {
    StartOnSample();
    desk->resize(800, 600);
    QCoreApplication::processEvents();
    for (const char* const chart :
         {"Sales and purchases", "Receipts and payments", "Owed and owing by age"}) {
        TabToCard(chart);
        auto& view = *dynamic_cast<desk::ChartView*>(desk->focusWidget());
        EXPECT_EQ(view.viewport()->visibleRegion().boundingRect(), view.viewport()->rect()) << chart;
    }
}

}  // namespace
