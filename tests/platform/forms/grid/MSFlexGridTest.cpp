#include "platform/basic/Error.h"
#include "platform/forms/grid/MSFlexGrid.h"
#include "tests/platform/forms/grid/GridFixture.h"

namespace {

using MSFlexGridTest = ControlTest<MSFlexGrid>;

TEST_F(MSFlexGridTest, TheFlatIndexCountsRowByRow) {
    MSFlexGrid& grid = control();
    grid.SetCols(3);
    grid.SetRows(1);
    grid.AddItem("1\t12\tCash");
    EXPECT_EQ(grid.TextArray(1 * 3 + 1), "12");
    EXPECT_EQ(grid.TextArray(1 * 3 + 2), "Cash");
    EXPECT_THROW(static_cast<void>(grid.TextArray(6)), basic::Error);
    EXPECT_THROW(static_cast<void>(grid.TextArray(-1)), basic::Error);
}

TEST_F(MSFlexGridTest, TheHighlightFollowsTheCellUntilItIsExtended) {
    MSFlexGrid& grid = control();
    grid.SetCols(4);
    grid.SetRows(5);
    Show();
    grid.SetRow(3);
    grid.SetCol(1);
    grid.SetColSel(3);
    EXPECT_EQ(grid.ColSel(), 3);
    ClickCell(2, 2);
    EXPECT_EQ(grid.ColSel(), 2);
}

TEST_F(MSFlexGridTest, ClearEmptiesButKeepsTheSize) {
    MSFlexGrid& grid = control();
    grid.SetRows(3);
    grid.SetTextMatrix(2, 1, "x");
    grid.SetColData(1, 200);
    grid.SetRow(0);  // the heading may be current
    grid.Clear();
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.TextMatrix(2, 1), "");
    EXPECT_EQ(grid.ColData(1), basic::Value(200));
    grid.SetRows(10);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(MSFlexGridTest, DoubleClickTellsTheRowUnderTheMouse) {
    MSFlexGrid& grid = control();
    grid.SetRows(4);
    Show();
    grid.DblClick = [&] { log.push_back(std::to_string(grid.MouseRow())); };
    DoubleClickCell(3, 1);
    DoubleClickCell(0, 1);
    EXPECT_THAT(Logged(), ElementsAre("3", "0"));
}

}  // namespace
