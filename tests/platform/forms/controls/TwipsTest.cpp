#include "tests/platform/forms/window/Fixture.h"

namespace {

TEST(Twips, FifteenToAPixelAt96Dots) {
    const QWidget widget;
    ASSERT_EQ(widget.logicalDpiX(), 96);
    for (const auto& [twips, pixels] :
         {std::pair{0, 0}, {15, 1}, {22, 1}, {23, 2}, {2200, 147}, {6975, 465}, {-15, -1}})
        EXPECT_EQ(PixelsFromTwips(twips, &widget), pixels) << twips;
    EXPECT_EQ(TwipsFromPixels(465, &widget), 6975);
}

TEST(Colours, RedComesFirst) {
    EXPECT_EQ(ToColor(vbRed), QColor(255, 0, 0));
    EXPECT_EQ(ToColor(0xFF8000), QColor(0, 128, 255));
    Label label(nullptr);
    label.SetForeColor(vbRed);
    EXPECT_EQ(label.ForeColor(), vbRed);
    EXPECT_EQ(FromColor(QColor(0, 128, 255)), 0xFF8000U);
}

}  // namespace
