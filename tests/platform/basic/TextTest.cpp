#include <gtest/gtest.h>

#include "platform/basic/Text.h"
#include "tests/support/Cases.h"

namespace {

using namespace basic;
using test::Cases;
using test::Cells;

constexpr const char* File = "platform/basic/cases.txt";

TEST(Text, CutsByCharacters) {
    const std::string text = "a\u0939\u20AC\U0001F600z";  // one, three, three, four and one byte
    EXPECT_EQ(Len(text), 5U);
    EXPECT_EQ(Left(text, 2), "a\u0939");
    EXPECT_EQ(Right(text, 2), "\U0001F600z");
    EXPECT_EQ(Mid(text, 3), "\u20AC\U0001F600z");
    EXPECT_EQ(Mid(text, 2, 2), "\u0939\u20AC");
    EXPECT_EQ(Mid(text, 6), "");
    EXPECT_EQ(Mid(text, 5, 99), "z");
    EXPECT_EQ(Left(text, 99), text);
    EXPECT_EQ(Right(text, 99), text);
    EXPECT_EQ(Left(text, 0) + Right(text, 0) + Mid(text, 1, 0) + Left("", 3), "");
}

TEST(Text, InvalidBytesAreCharactersByThemselves) {
    const std::string text = "\xE2\x82 \xFFx\xE2\x82";  // a sequence that breaks off, twice
    EXPECT_EQ(Len(text), 7U);
    EXPECT_EQ(Left(text, 4), "\xE2\x82 \xFF");
    EXPECT_EQ(Right(text, 1), "\x82");
    EXPECT_EQ(UCase(text), "\xE2\x82 \xFFX\xE2\x82");
    EXPECT_FALSE(EqualText("\xFF", "\xFE"));
    EXPECT_FALSE(EqualText("\xFF", "\u00FF"));
    EXPECT_EQ(ToUtf16("\xFFx"), u"\uFFFDx");
    // Latin-1, an overlong form, half a pair, a character cut short; then four that are right.
    for (const char* wrong : {"caf\xE9", "\xC0\x80", "\xED\xA0\x80", "a\xE2\x82"})
        EXPECT_FALSE(IsUtf8(wrong));
    for (const char* right : {"", "\x01", "\u00E9\u20AC", "\U0001F600"}) EXPECT_TRUE(IsUtf8(right));
}

TEST(Text, TrimTakesOnlyBlanks) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(" \ta\n "), "\ta\n");
    EXPECT_EQ(Trim("\u00A0a\u00A0"), "\u00A0a\u00A0");
}

TEST(Text, CaseOfAllScripts) {
    EXPECT_EQ(UCase("Straße \u00E9\u0436\u03C3 1"), "STRAßE \u00C9\u0416\u03A3 1");
}

TEST(Text, ComparesWithoutCase) {
    for (const Cells& c : Cases(File, "Order of texts")) {
        const std::string &a = c.at(0), &b = c.at(1);
        SCOPED_TRACE(a + " and " + b);
        const int expected = std::stoi(c.at(2)), order = CompareText(a, b), back = CompareText(b, a);
        if (expected != -2) {
            EXPECT_EQ((order > 0) - (order < 0), expected);
        }
        EXPECT_EQ((back > 0) - (back < 0), -((order > 0) - (order < 0)));
        for (const bool same : {order == 0, EqualText(a, b), FoldCase(a) == FoldCase(b)})
            EXPECT_EQ(same, expected == 0);
    }
}

TEST(Text, Like) {
    for (const Cells& c : Cases(File, "Like"))
        EXPECT_EQ(LikeText(c.at(0), c.at(1)), c.at(2) == "true") << c.at(0) << " like " << c.at(1);
    // Would not end if each % tried all its lengths anew.
    std::string pattern;
    for (int i = 0; i < 40; ++i) pattern += "%a";
    EXPECT_FALSE(LikeText(std::string(5000, 'a'), pattern + "b%"));
}

TEST(Text, Replace) {
    EXPECT_EQ(Replace("a\"b\"", "\"", "'"), "a'b'");
    EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Replace("aa", "a", "aa"), "aaaa");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
    EXPECT_EQ(Replace("", "a", "x"), "");
}

TEST(Text, Utf16) {
    EXPECT_EQ(ToUtf16("a\u20AC\U0001F600"), u"a\u20AC\U0001F600");
    EXPECT_EQ(FromUtf16(u"a\u20AC\U0001F600"), "a\u20AC\U0001F600");
    const char16_t lone[] = {0xD800, 'a', 0xDC00, 0xD83D};
    EXPECT_EQ(FromUtf16({lone, 4}), "\uFFFDa\uFFFD\uFFFD");
    EXPECT_EQ(ToUtf16("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");  // a surrogate written as a character is none
}

}  // namespace
