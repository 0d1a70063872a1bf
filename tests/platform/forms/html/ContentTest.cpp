#include <gmock/gmock.h>

#include "platform/forms/html/Content.h"
#include "tests/support/Cases.h"

using namespace forms::html;

namespace {

TEST(Content, IsReadAsABrowserTakesIt) {
    for (const test::Cells& c : test::Cases("platform/forms/html/content.txt", "Content")) {
        EXPECT_EQ(InnerText(c.at(0)), c.at(1)) << c[0];
        EXPECT_EQ(InnerHtml(c.at(0)), c.at(2)) << c[0];
    }
}

TEST(Content, ABodyIsReplacedAndTheHeadStays) {
    const std::string document =
        WithBody("<html><head><title>T</title></head><body class='x'>old", "<b>new</b> & more");
    EXPECT_EQ(document,
              "<html><head><title>T</title></head><body class=\"x\"><b>new</b> & more</body></html>");
    EXPECT_EQ(InnerText(document), "new & more");
    EXPECT_EQ(InnerText(WithBody("", "<td>1")), "1");
}

}  // namespace
