#include <gtest/gtest.h>

#include "platform/basic/Error.h"
#include "platform/forms/grid/GridModel.h"

namespace {

using forms::GridModel;

TEST(GridModelTest, RowsThatWentComeBackEmpty) {
    GridModel grid(2, 3, 1);
    grid.SetText(1, 2, "old");
    grid.Extra(1, 0).Data = "key";
    grid.SetRowHidden(1, true);
    grid.Column(2).Format = "0.00";
    grid.SetRows(1);
    grid.SetRows(2);
    EXPECT_EQ(grid.Text(1, 2), "");
    EXPECT_TRUE(grid.Extra(1, 0).Data.IsNull());
    EXPECT_FALSE(grid.RowHidden(1));
    EXPECT_EQ(grid.Column(2).Format, "0.00");  // columns stay
}

TEST(GridModelTest, RowsCarryEverythingWithThem) {
    GridModel grid(1, 2, 1);
    grid.InsertRow(1, "a\t1\tbeyond");
    grid.InsertRow(2, "c\t3");
    grid.InsertRow(2, "b\t2");
    grid.Extra(2, 0).Checked = true;
    EXPECT_EQ(grid.Text(1, 1), "1");
    EXPECT_EQ(grid.Text(2, 0), "b");
    grid.RemoveRow(1);
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_TRUE(grid.Extra(1, 0).Checked);
    EXPECT_EQ(grid.Text(2, 0), "c");
}

TEST(GridModelTest, WhatIsNotThereIsAnError) {
    GridModel grid(2, 2, 1);
    for (const auto& [row, col] : {std::pair(-1, 0), {2, 0}, {0, -1}, {0, 2}}) {
        EXPECT_THROW(static_cast<void>(grid.Text(row, col)), basic::Error) << row << ',' << col;
        EXPECT_THROW(grid.SetText(row, col, "x"), basic::Error) << row << ',' << col;
    }
    EXPECT_THROW(grid.RemoveRow(2), basic::Error);
    EXPECT_THROW(grid.InsertRow(3, ""), basic::Error);
    EXPECT_THROW(grid.SetRows(-1), basic::Error);
}

TEST(GridModelTest, ReadsNumbersFromTexts) {
    const std::pair<const char*, double> cases[] = {{"", 0},   {"12.5", 12.5},     {"1,234.50", 1234.5},
                                                    {" 7", 7}, {"12500Dr", 12500}, {"abc", 0},
                                                    {".", 0},  {"-3", -3}};
    GridModel grid(1, 1, 0);
    for (const auto& [text, number] : cases) {
        grid.SetText(0, 0, text);
        EXPECT_DOUBLE_EQ(grid.Value(0, 0), number) << '"' << text << '"';
    }
}

TEST(GridModelTest, SortsNumbersAsNumbersAndKeepsEqualRowsInOrder) {
    GridModel grid(1, 2, 1);
    for (const char* row : {"10\ta", "9\tb", "abc\tc", "Abc\td", "9\te"}) grid.InsertRow(grid.Rows(), row);
    const auto second = [&grid] {
        std::string all;
        for (int row = 1; row < grid.Rows(); ++row) all += grid.Text(row, 1);
        return all;
    };
    grid.SortRows(0, false);
    EXPECT_EQ(second(), "beacd");
    grid.SortRows(0, true);
    EXPECT_EQ(second(), "cdabe");
}

}  // namespace
