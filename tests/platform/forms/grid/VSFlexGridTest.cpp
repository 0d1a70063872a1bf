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

TEST_F(VSFlexGridTest, MovesByCodeFireWhatTheUsersMovesFire) {
    VSFlexGrid& grid = control();
    const struct {
        const char* what;
        std::function<void()> act;
        const char* to;
    } moves[] = {
        {"select", [&] { grid.Select(2, 1); }, "2,1 from 1,0"},
        {"row", [&] { grid.SetRow(3); }, "3,1 from 2,1"},
        {"col", [&] { grid.SetCol(2); }, "3,2 from 3,1"},
        {"down", [&] { Key(Qt::Key_Down); }, "4,2 from 3,2"},
        {"left", [&] { Key(Qt::Key_Left); }, "4,1 from 4,2"},
        {"end", [&] { Key(Qt::Key_End); }, "4,3 from 4,1"},
        {"tab", [&] { Key(Qt::Key_Tab); }, "5,0 from 4,3"},
        {"back", [&] { Key(Qt::Key_Backtab, Qt::ShiftModifier); }, "4,3 from 5,0"},
        {"ctrl home", [&] { Key(Qt::Key_Home, Qt::ControlModifier); }, "1,0 from 4,3"},
        {"mouse", [&] { ClickCell(2, 2); }, "2,2 from 1,0"},
        {"page", [&] { Key(Qt::Key_PageDown); }, "5,2 from 2,2"},
    };
    for (const auto& move : moves) {
        SCOPED_TRACE(move.what);
        move.act();
        const std::string to = std::string(move.to).substr(0, 3);
        EXPECT_THAT(Logged(), ElementsAre("before " + to, std::string("after ") + move.to));
    }
    grid.Select(5, 2);
    EXPECT_THAT(Logged(), IsEmpty());  // the same cell is no move
    EXPECT_THROW(grid.Select(9, 0), basic::Error);
}

TEST_F(VSFlexGridTest, ACancelledMoveDoesNotHappen) {
    refusedRow = 2;
    ClickCell(2, 1);
    Key(Qt::Key_Down);
    control().Select(2, 3);
    EXPECT_THAT(Logged(), ElementsAre("before 2,1", "before 2,0", "before 2,3"));
    EXPECT_EQ(control().Row(), 1);
    EXPECT_EQ(control().Col(), 0);
    refusedRow = 5;  // a foot: the long ways stop before it
    for (const auto& [key, col] : {std::pair(Qt::Key_PageDown, 0), {Qt::Key_End, 3}}) {
        control().Select(1, 0);
        Key(key, key == Qt::Key_End ? Qt::ControlModifier : Qt::NoModifier);
        EXPECT_EQ(At("", control().Row(), control().Col()), At("", 4, col));
    }
}

TEST_F(VSFlexGridTest, TabLeavesWhereNoCellFollowsOrTheMoveIsRefused) {
    control().Select(5, 3);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Active(), "txtAfter");
    control().SetFocus();
    control().Select(1, 3);
    refusedRow = 2;
    Key(Qt::Key_Tab);
    EXPECT_EQ(Active(), "txtAfter");
    control().SetFocus();
    control().Select(1, 0);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Active(), "txtBefore");
    control().SetFocus();
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Active(), "txtAfter");
}

TEST_F(VSFlexGridTest, HiddenRowsAndColumnsAreSteppedOver) {
    control().SetRowHidden(2, true);
    control().SetColHidden(1, true);
    Key(Qt::Key_Down);
    Key(Qt::Key_Right);
    EXPECT_EQ(control().Row(), 3);
    EXPECT_EQ(control().Col(), 2);
    EXPECT_EQ(control().CellRect(2, 0).height(), 0);
    EXPECT_EQ(control().CellRect(3, 0).top(), control().CellRect(1, 0).bottom() + 1);
    control().Select(2, 1);  // code may stand on a hidden cell
    EXPECT_EQ(control().Row(), 2);
}

TEST_F(VSFlexGridTest, TheCurrentCellStaysWhereThereAreCells) {
    control().Select(5, 3);
    Logged();
    control().SetRows(1);
    control().SetRows(2);
    EXPECT_EQ(control().Row(), 1);
    control().AddItem("x");
    control().RemoveItem(1);
    EXPECT_EQ(control().Row(), 1);
    EXPECT_EQ(control().TextMatrix(1, 0), "x");
    EXPECT_THAT(Logged(), IsEmpty());  // nobody moved
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
