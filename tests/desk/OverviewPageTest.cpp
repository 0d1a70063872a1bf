#include <QPushButton>

#include "desk/BooksCheck.h"
#include "desk/ChartView.h"
#include "tests/desk/DeskFixture.h"

namespace {

class OverviewPageTest : public test::DeskTest {
  protected:
    void StartOnSample() {
        FillWithSample();
        StartOnBooks();
    }
    void StartOnBooks() {
        Start();
        ASSERT_EQ(Title(), "Overview");
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Marked().empty(); }));
    }
    std::string Marked() {
        auto* const chart = dynamic_cast<desk::ChartView*>(desk->focusWidget());
        return chart ? chart->MarkedText().toStdString() : "";
    }
    // To a chart by its name, or to a table by that of its columns.
    void TabTo(const QString& name) {
        for (int i = 0; i < 30; ++i) {
            const QWidget& at = *desk->focusWidget();
            if (at.accessibleName() == name || at.objectName() == name) return;
            Key(Qt::Key_Tab);
        }
        FAIL() << "no card " << name.toStdString();
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
        {"Owed and owing by age", "Over 90, Owed to us: 42,152.00", "Parties", "Over 90 42,152.00", 3, 0},
    };
    for (const auto& figure : figures) {
        SCOPED_TRACE(figure.Chart);
        TabTo(figure.Chart);
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
    TabTo("Sales and purchases");
    Press({"Right", "Ctrl+T"});
    auto* const table = dynamic_cast<QAbstractItemView*>(desk->focusWidget());
    ASSERT_TRUE(table);
    EXPECT_EQ(table->model()->rowCount(), 12);
    EXPECT_EQ(table->model()->index(1, 2).data().toString().toStdString(), "56,750.00");
    Press({"Right", "Return"});  // the figure beside it, with the mark
    EXPECT_EQ(Title(), "Vouchers");
    WaitForTotals("1 line, Debit 28,200.00");
    Press({"Esc", "Ctrl+T"});
    EXPECT_EQ(Marked(), "May 2001, Purchases: 28,200.00");
}

// The rest of the page: a row leads to what it is made of, a button to the list narrowed to the card.
TEST_F(OverviewPageTest, EachRowAndButtonOpensWhatStandsBehindItAndBackIsTheSameRow) {
    FillWithSample();
    books.OpenHost();
    books.Run(NewLines("LedgerTrnNo = 3 And LedgerDrAmt > 0", "37000, 1, 0, ''"));
    StartOnBooks();
    const struct {
        const char* Card;
        std::vector<std::string> Keys;
        const char *Title, *Line;
    } leads[] = {
        {"overviewParties", {"Down", "Return"}, "Example Paper Mart", "Opening"},
        {"overviewShort", {"Return"}, "Graph Book 100 Leaves", ""},
        {"overviewParties", {"Alt+P"}, "Parties", "Demo Packaging Works|Suppliers|"},
        {"overviewShort", {"Alt+I"}, "Stock", "12|Graph Book 100 Leaves|"},
        {"Cash and bank", {"Alt+F"}, "Check of the books", "Error|voucher 900 of 2001"},
        {"Cash and bank", {"Alt+B"}, "Books", ""},
    };
    auto& findings = Child<QPushButton>("findings");
    ASSERT_TRUE(QTest::qWaitFor([&] { return findings.isEnabled(); }));
    for (const auto& [card, keys, title, line] : leads) {
        SCOPED_TRACE(title);
        TabTo(card);
        const QWidget* const before = desk->focusWidget();
        Press(keys);
        EXPECT_EQ(Title(), title);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return *line == '\0' || CurrentLine().find(line) != std::string::npos;
        })) << CurrentLine();
        Press({"Alt+Left"});
        EXPECT_EQ(Title(), "Overview");
        EXPECT_EQ(desk->focusWidget(), before);
    }
}

TEST_F(OverviewPageTest, AChartThatTabComesToIsSeenWhole) {
    StartOnSample();
    desk->resize(800, 600);
    QCoreApplication::processEvents();
    for (const char* const chart :
         {"Sales and purchases", "Receipts and payments", "Owed and owing by age"}) {
        TabTo(chart);
        auto& view = *dynamic_cast<desk::ChartView*>(desk->focusWidget());
        EXPECT_EQ(view.viewport()->visibleRegion().boundingRect(), view.viewport()->rect()) << chart;
    }
}

}  // namespace
