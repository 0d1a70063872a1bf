#include <gmock/gmock.h>

#include "platform/forms/html/Content.h"
#include "tests/platform/forms/html/Extent.h"

using namespace forms::html;

namespace {

constexpr Bounds Narrow{.Tables = 1, .Text = 30};

TEST(Bounds, MarkupBeyondThemCountsForNothing) {
    const struct {
        std::string document, bounded;
    } cases[] = {
        {"<table border = '0' width='100%''><tr></td>x</td></td><td>a <b>b</b><ht> < & &lt;</table><hr><p>",
         "<table border = '0' width='100%''><tr></td>x</td></td><td>a <b>b</b><ht> < & &lt;</table><hr><p>"},
        {"<table><td><table><td>a</table></td><td><TABLE >b</td></table>c",
         "<table><td><td>a</td><td>b</td>c"},
        {"<table>a<b>b</b><td>c</table><table><table><td>d", "<table>ab<td>c</table><table><table><td>d"},
        {"a<!-- b -->c<!-->d<!-- <b>e</b> -->f<!--g<?h>", "a<!-- b -->c<!-->df&lt;!--g<?h>"},
        {"a<script>b('<i>')</script>c<style>d</b></style>e<script>f",
         "a<script>b('<i>')</script>c<style></style>ef"},
        {"<svg><td>a</td></svg><select><b>b</select><textarea>c", "<td>a</td><b>bc"},
        {"<b title='>'>a<b title='<i>b<b", "<b title='>'>a&lt;b title='<i>b&lt;b"},
        {"<table><td>a text within its bounds<td>b", "<table><td>a text within its bounds<td>b"},
        {"<table><td>1<td>a long text goes on in a further row<td>b",
         "<table><td>1<td>a long text goes on in a further<tr><td><td> row<td>b"},
    };
    for (const auto& c : cases) EXPECT_EQ(Bounded(c.document, Narrow), c.bounded) << c.document;
}

// What is repeated without end is neither deep nor wide, and all its words are still there.
TEST(Bounds, HoldWhateverIsRepeated) {
    for (const char* markup : {"<table>w",
                               "<table><td>w",
                               "<td>w</td>",
                               "<div>w",
                               "<b>w",
                               "<b id=#>w<p>",
                               "<font size=#><div>w</div>",
                               "<a><div>w",
                               "<ul><li>w",
                               "<dl><dd>w",
                               "<b><div>w</b>",
                               "<table>w<b id=#>",
                               "<svg>w",
                               "<p><table><caption>w",
                               "<form>w",
                               "<nobr><table>w</table>",
                               "</td><b id=#>w",
                               "</table><tr><td><i id=#>w",
                               "<template><td>w",
                               "<html a#=1>w",
                               "<button>w",
                               "<ruby><rt>w",
                               "<b =>w",
                               "<!--w",
                               "<td><b id=#>w</td>"}) {
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
