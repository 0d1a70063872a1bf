#include <gtest/gtest.h>

#include "platform/forms/grid/GridAxis.h"

namespace {

using forms::GridAxis;

GridAxis Rows() {
    GridAxis axis;
    axis.Set({30, 26, 0, 26, 3, 26}, 1);  // a heading, a hidden row, a rule
    return axis;
}

TEST(GridAxisTest, FindsWhoCoversAPlace) {
    const GridAxis axis = Rows();
    const struct {
        int place, offset, index;
    } cases[] = {{0, 0, 0},   {29, 0, 0},   {30, 0, 1}, {56, 0, 3},  {82, 0, 4},  {85, 0, 5},
                 {110, 0, 5}, {111, 0, -1}, {0, 40, 0}, {30, 26, 3}, {40, 52, 5}, {-1, 0, -1}};
    for (const auto& c : cases)
        EXPECT_EQ(axis.AtView(c.place, c.offset), c.index) << c.place << " at " << c.offset;
    EXPECT_EQ(axis.ViewStart(0, 40), 0);
    EXPECT_EQ(axis.ViewStart(3, 40), 16);
}

TEST(GridAxisTest, ScrollsOnlyAsFarAsNeeded) {
    const GridAxis axis = Rows();
    EXPECT_EQ(axis.OffsetToShow(1, 50, 82), 0);
    EXPECT_EQ(axis.OffsetToShow(5, 0, 82), 29);
    EXPECT_EQ(axis.OffsetToShow(3, 10, 82), 10);
    EXPECT_EQ(axis.OffsetToShow(0, 50, 82), 50);  // fixed: in view anyway
    EXPECT_EQ(axis.OffsetToShow(9, 50, 82), 50);  // not there
}

TEST(GridAxisTest, WalksOverHiddenAndFixedOnes) {
    const GridAxis axis = Rows();
    EXPECT_EQ(axis.NextShown(2, 1), 3);
    EXPECT_EQ(axis.NextShown(2, -1), 1);
    EXPECT_EQ(axis.NextShown(0, -1), -1);
    EXPECT_EQ(axis.NextShown(6, 1), -1);
}

TEST(GridAxisTest, AMillionEqualRows) {
    GridAxis axis;
    axis.SetUniform(1'000'001, 26, 1);
    EXPECT_EQ(axis.AtView(26, 26 * 999'999), 1'000'000);
    EXPECT_EQ(axis.OffsetToShow(1'000'000, 0, 260), 26 * 1'000'001 - 260);
}

}  // namespace
