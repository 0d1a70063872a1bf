#include "platform/basic/Error.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "tests/platform/forms/grid/GridFixture.h"

namespace {

class VSFlexGridTest : public ControlTest<VSFlexGrid> {
  protected:
    void SetUp() override {
        control().SetCols(4);
        control().SetRows(1);
        for (int row = 1; row < 6; ++row) control().AddItem("a\tb\tc\td");
        Show();
        control().SetFocus();
        control().BeforeRowColChange = [this](int, int, int row, int col, bool& cancel) {
            log.push_back(At("before", row, col));
            cancel = row == refusedRow;
        };
        control().AfterRowColChange = [this](int oldRow, int oldCol, int row, int col) {
            log.push_back(At("after", row, col) + " from " + std::to_string(oldRow) + ',' +
                          std::to_string(oldCol));
        };
    }
    int refusedRow = -1;
};

using VSFlexGridMoves = GridSessions<VSFlexGridTest>;

TEST_P(VSFlexGridMoves, FireWhatIsTold) {
    RunSession();
}

INSTANTIATE_TEST_SUITE_P(All, VSFlexGridMoves,
                         testing::ValuesIn(test::Sessions("platform/forms/grid/VSFlexGridMoves.txt")),
                         VSFlexGridMoves::NameOf);

TEST_F(VSFlexGridTest, AHiddenRowTakesNoRoom) {
    control().SetRowHidden(2, true);
    EXPECT_EQ(control().CellRect(2, 0).height(), 0);
    EXPECT_EQ(control().CellRect(3, 0).top(), control().CellRect(1, 0).bottom() + 1);
}

TEST_F(VSFlexGridTest, MouseEventsKnowTheCellUnderTheMouse) {
    control().MouseDown = [this](int button, int, int, int) {
        log.push_back(At("down" + std::to_string(button), control().MouseRow(), control().MouseCol()));
    };
    control().MouseMove = [this](int, int, int, int) {
        log.push_back(At("move", control().MouseRow(), control().MouseCol()));
    };
    control().MouseUp = [this](int, int, int, int) { log.push_back("up"); };
    control().Click = [this] { log.push_back("click"); };
    control().DblClick = [this] { log.push_back("dblclick"); };
    DoubleClickCell(2, 1);
    EXPECT_THAT(Logged(), ElementsAre("down1 2,1", "before 2,1", "after 2,1 from 1,0", "up", "click",
                                      "down1 2,1", "dblclick", "up"));
    ClickCell(0, 1);  // the heading moves nothing
    EXPECT_THAT(Logged(), ElementsAre("down1 0,1", "up", "click"));
    QTest::mouseMove(control().viewport(), control().viewport()->rect().bottomRight() - QPoint(3, 3));
    EXPECT_EQ(Logged().back(), "move -1,3");
}

TEST_F(VSFlexGridTest, FixedRowsStayInView) {
    for (int row = 6; row < 200; ++row) control().AddItem("more");
    control().Select(199, 0);
    EXPECT_EQ(control().RowAt(2), 0);
    EXPECT_EQ(control().CellRect(0, 0).top(), 0);
    const QRect last = control().CellRect(199, 0);
    EXPECT_GE(last.top(), control().CellRect(0, 0).height());
    EXPECT_LE(last.bottom(), control().viewport()->height());
    ClickCell(199, 2);
    EXPECT_EQ(control().Row(), 199);
}

TEST_F(VSFlexGridTest, KeyDownComesBeforeKeyPressAndEitherDropsTheKey) {
    control().KeyDown = [this](int& code, int shift) {
        log.push_back("down " + std::to_string(code) + ' ' + std::to_string(shift));
        if (code == 40) code = 0;
    };
    control().KeyPress = [this](int& ascii) {
        log.push_back("press " + std::to_string(ascii));
        if (ascii == 'q') ascii = 0;
    };
    Key(Qt::Key_Down);
    Key(Qt::Key_Delete);
    Type("a");
    Type(".");  // not to be taken for Delete
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(Logged(), ElementsAre("down 40 0", "down 46 0", "down 65 0", "press 97", "down 255 0",
                                      "press 46", "down 17 2", "Form S", "down 83 2"));
    control().KeyDown = [this](int& code, int) {
        if (code == vbKeyTab) form.ui().txtBefore->SetFocus();
    };
    Key(Qt::Key_Tab);  // what the handler did with the focus stands
    EXPECT_EQ(Active(), "txtBefore");
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(VSFlexGridTest, AutoSizeFitsTheWidestPaintedText) {
    control().SetTextMatrix(3, 1, "1234567.5");
    control().AutoSize(1, 1);
    const int raw = control().ColWidth(1);
    control().SetColFormat(1, "#,##,###.00");
    control().AutoSize(1, 1);
    EXPECT_GT(control().ColWidth(1), raw);
    EXPECT_EQ(control().TextMatrix(3, 1), "1234567.5");  // a format only paints
    control().SetTextMatrix(0, 1, "A heading that is much wider");
    control().AutoSize(1, 1);
    EXPECT_GT(control().ColWidth(1), 2 * raw);
}

TEST_F(VSFlexGridTest, AColumnOfNamesTakesWhatTheOthersLeaveFree) {
    VSFlexGrid& grid = control();
    const int told = grid.CellRect(1, 1).width(), last = grid.CellRect(1, 3).width();
    grid.SetGrowingCol(1);
    grid.SetTextMatrix(2, 1, "Tea");
    EXPECT_EQ(grid.CellRect(1, 1).width(), told) << "it fits";
    grid.SetTextMatrix(2, 1, "Packing charges recovered from customers");
    const int grown = grid.CellRect(1, 1).width();
    EXPECT_GT(grown, QFontMetrics(grid.font()).horizontalAdvance("Packing charges recovered from customers"));
    EXPECT_EQ(grid.CellRect(1, 3).width(), last - (grown - told));
    grid.SetTextMatrix(2, 1, std::string(500, 'W'));
    EXPECT_EQ(grid.CellRect(1, 3).right(), grid.viewport()->width() - 1) << "never more than there is";
    EXPECT_EQ(PixelsFromTwips(grid.ColWidth(1), &grid), told);
    grid.SetTextMatrix(2, 1, "b");
    EXPECT_EQ(grid.CellRect(1, 1).width(), told);
}

TEST_F(VSFlexGridTest, OnlyAGridWithTheFocusFramesItsCell) {
    VSFlexGrid& grid = control();
    grid.Select(2, 1);
    const auto edge = [&] {
        const QRect cell = grid.CellRect(2, 1);
        const QImage image = grid.viewport()->grab(cell).toImage();
        return image.pixelColor(1, cell.height() / 2) != image.pixelColor(4, cell.height() / 2);
    };
    EXPECT_TRUE(edge());
    form.ui().txtBefore->SetFocus();
    EXPECT_FALSE(edge());
}

// A text that stands out into empty cells has no line of the grid through it.
TEST_F(VSFlexGridTest, NoLineGoesThroughAText) {
    VSFlexGrid& grid = control();
    form.ui().txtBefore->SetFocus();
    for (int col = 0; col < 2; ++col) grid.SetTextMatrix(3, col, "");
    grid.SetColAlignment(1, Alignment::Right);
    const auto line = [&] {
        const QRect cell = grid.CellRect(3, 0);
        const QColor corner =
            grid.viewport()->grab(QRect(cell.right(), cell.top() + 1, 1, 1)).toImage().pixelColor(0, 0);
        return corner != QColor(Qt::white);
    };
    EXPECT_TRUE(line());
    grid.SetTextMatrix(3, 1, "Total Balance = ");
    EXPECT_FALSE(line());
}

TEST_F(VSFlexGridTest, ASortedGridCarriesTheTicksWithTheirRows) {
    control().SetExplorerSort(true);
    for (int row = 1; row < 6; ++row)
        control().SetTextMatrix(row, 0, std::to_string(row * 7 % 5));  // 2 4 1 3 0
    control().SetCellChecked(2, 3, true);
    ClickCell(0, 0);
    EXPECT_EQ(control().TextMatrix(5, 0), "4");
    EXPECT_TRUE(control().CellChecked(5, 3));
    ClickCell(0, 0);
    EXPECT_EQ(control().TextMatrix(1, 0), "4");
    control().SetExplorerSort(true);
    EXPECT_EQ(control().Shown(0, 0).SortArrow, 0) << "set again: the rows are new";
    ClickCell(0, 0);
    EXPECT_EQ(control().Shown(0, 0).SortArrow, 1);
    control().AutoSize(0, 0);
    const int withMark = control().ColWidth(0);
    control().SetExplorerSort(false);
    control().AutoSize(0, 0);
    EXPECT_GT(withMark, control().ColWidth(0)) << "the mark does not cut its heading";
}

}  // namespace
