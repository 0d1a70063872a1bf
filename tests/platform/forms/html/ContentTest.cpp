#include <gmock/gmock.h>

#include "platform/forms/html/Content.h"

using namespace forms::html;

namespace {

struct Case {
    const char *document, *text, *html;
};

TEST(Content, IsReadAsABrowserTakesIt) {
    const Case cases[] = {
        {"", "", ""},
        {"plain & simple", "plain & simple", "plain &amp; simple"},
        {"<html><head><title>T</title></head><body><table border = '0'><td>A</td><td align='lEFT'>B</td>",
         "A\tB", "<table border=\"0\"><tbody><tr><td>A</td><td align=\"lEFT\">B</td></tr></tbody></table>"},
        {"<table><tr><td>1</td></td></tr><tr><td></td><td>2</td></tr></table>", "1\r\n\t2",
         "<table><tbody><tr><td>1</td></tr><tr><td></td><td>2</td></tr></tbody></table>"},
        {"<table><tr></td>astray</td></tr></table>", "astray",
         "astray<table><tbody><tr></tr></tbody></table>"},
        {"<table><tr><td><p align='center'><b>Open</td></tr></table>next", "Open\r\nnext",
         "<table><tbody><tr><td><p align=\"center\"><b>Open</b></p></td></tr></tbody></table>next"},
        {"a<br>b  c\n d<ht>e</ht>", "a\r\nb c de", "a<br>b  c\n d<ht>e</ht>"},
        {"a<script>b(\"<i>\")</script><style>c{}</style><!-- d -->e", "ae",
         "a<script>b(\"<i>\")</script><style>c{}</style><!-- d -->e"},
        {"<td width='100%''>x &lt;y&gt;", "x <y>", "x &lt;y&gt;"},
        {"\xE0\xA4\xB0\xE0\xA5\x81 <hr>", "\xE0\xA4\xB0\xE0\xA5\x81", "\xE0\xA4\xB0\xE0\xA5\x81 <hr>"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(InnerText(c.document), c.text) << c.document;
        EXPECT_EQ(InnerHtml(c.document), c.html) << c.document;
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
