#include <gmock/gmock.h>

#include "platform/forms/html/Content.h"
#include "tests/platform/forms/html/Extent.h"
#include "tests/support/Cases.h"

using namespace forms::html;

namespace {

constexpr Bounds Narrow{.Tables = 1, .Text = 30};

TEST(Bounds, MarkupBeyondThemCountsForNothing) {
    for (const test::Cells& c : test::Cases("platform/forms/html/content.txt", "Bounds"))
        EXPECT_EQ(Bounded(c.at(0), Narrow), c.at(1)) << c[0];
}

// What is repeated without end is neither deep nor wide, and all its words are still there.
TEST(Bounds, HoldWhateverIsRepeated) {
    for (const test::Cells& c : test::Cases("platform/forms/html/content.txt", "Repeated")) {
        const std::string& markup = c.at(0);
        std::string text = "<table><tr><td>";
        for (int i = 0; i < 2000; ++i) {
            std::string one = markup;
            if (const auto at = one.find('#'); at != std::string::npos) one.replace(at, 1, std::to_string(i));
            text += one + std::to_string(i);
        }
        for (const Bounds& bounds : {Tree::Reading, Narrow}) {
            const Extent extent{Tree(text, bounds)};
            EXPECT_LE(extent.Depth, Extent::Deepest(bounds)) << markup;
            EXPECT_LE(extent.Tables, bounds.Tables) << markup;
            EXPECT_LE(extent.Cells, Bounds::Cells) << markup;
        }
        const std::string read = InnerText(text);
        EXPECT_EQ(std::count(read.begin(), read.end(), 'w'), 2000) << markup;
    }
}

}  // namespace
