#include <gmock/gmock.h>

#include "platform/forms/grid/ComboList.h"

namespace {

using forms::ComboList;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ComboListTest, ReadsTheListTexts) {
    const ComboList sides("Dr.|Cr.");
    ASSERT_EQ(sides.Count(), 2);
    EXPECT_EQ(sides.Shown(1), "Cr.");
    EXPECT_EQ(sides.At(1).Data, "");
    EXPECT_FALSE(sides.AllowsTyping());

    const ComboList ledgers("#12*1;12\tState Bank; Main\t 10.5Dr|#7;7\tCash\t");
    ASSERT_EQ(ledgers.Count(), 2);
    EXPECT_EQ(ledgers.At(0).Data, "12");
    EXPECT_THAT(ledgers.At(0).Columns, ElementsAre("12", "State Bank; Main", " 10.5Dr"));
    EXPECT_EQ(ledgers.Shown(0), "State Bank; Main");
    EXPECT_EQ(ledgers.At(1).Data, "7");
    EXPECT_EQ(ledgers.Shown(1), "Cash");

    EXPECT_TRUE(ComboList("...").IsButton());
    EXPECT_EQ(ComboList("...").Count(), 0);
    EXPECT_TRUE(ComboList("|Dr.|Cr.").AllowsTyping());
    EXPECT_EQ(ComboList("|Dr.|Cr.").Count(), 2);
    EXPECT_TRUE(ComboList("").Empty());
    EXPECT_EQ(ComboList("#5*3;only").Shown(0), "only");  // a column that the entry lacks
    EXPECT_EQ(ComboList("#5").Shown(0), "#5");           // no data without its end
}

TEST(ComboListTest, NarrowsTheViewOnly) {
    const ComboList list("Cash|State Bank|Bank of Baroda|\u00c9toile");
    const struct {
        const char* typed;
        std::vector<int> shown;
        int best;
    } cases[] = {
        {"", {0, 1, 2, 3}, 0}, {"bank", {1, 2}, 2}, {"ST", {1}, 1}, {"\u00e9", {3}, 3}, {"zz", {}, -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        EXPECT_EQ(list.Narrowed(c.typed), c.shown);
        EXPECT_EQ(list.Best(list.Narrowed(c.typed), c.typed), c.best);
    }
    EXPECT_EQ(list.Count(), 4);
    EXPECT_EQ(list.Find("state bank"), 1);
    EXPECT_EQ(list.Find("Bank"), -1);
}

}  // namespace
