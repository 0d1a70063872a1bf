#include <QAccessible>

#include "tests/platform/forms/grid/GridFixture.h"

namespace {

using GridAccessibleTest = ControlTest<VSFlexGrid>;

TEST_F(GridAccessibleTest, CellsCanBeReadWithTheirHeadings) {
    VSFlexGrid& grid = control();
    grid.SetCols(3);
    grid.SetColBoolean(0, true);
    grid.SetTextMatrix(0, 1, "Unit\r\nRate");
    grid.SetTextMatrix(1, 1, "1234.5");
    grid.SetColFormat(1, "#,##,###.00");
    grid.SetCellChecked(1, 0, true);
    Show();
    grid.SetFocus();
    grid.Select(1, 1);

    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&grid);
    ASSERT_TRUE(seen && seen->tableInterface());
    EXPECT_EQ(seen->role(), QAccessible::Table);
    EXPECT_EQ(seen->childCount(), 6);
    QAccessibleInterface* const amount = seen->tableInterface()->cellAt(1, 1);
    EXPECT_EQ(amount->text(QAccessible::Name), "1,234.50");
    EXPECT_EQ(amount->text(QAccessible::Description), "Unit Rate");
    EXPECT_TRUE(amount->state().focused);
    EXPECT_EQ(seen->focusChild(), amount);
    EXPECT_EQ(seen->child(seen->indexOfChild(amount)), amount);
    EXPECT_EQ(seen->childAt(amount->rect().center().x(), amount->rect().center().y()), amount);
    EXPECT_EQ(seen->tableInterface()->cellAt(0, 1)->role(), QAccessible::ColumnHeader);
    QAccessibleInterface* const mark = seen->child(3);
    EXPECT_EQ(mark->role(), QAccessible::CheckBox);
    EXPECT_TRUE(mark->state().checked);
    EXPECT_EQ(seen->tableInterface()->cellAt(2, 0), nullptr);
    grid.SetRows(1);
    EXPECT_FALSE(amount->isValid());
}

}  // namespace
