#include <gtest/gtest.h>

#include "platform/basic/Text.h"

namespace {

using namespace basic;

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
    EXPECT_EQ(LCase("\u00C9\u0416\u03A3 AbC"), "\u00E9\u0436\u03C3 abc");
}

TEST(Text, ComparesWithoutCase) {
    const struct {
        const char *a, *b;
        int order;
    } cases[] = {{"", "", 0},        {"abc", "ABC", 0},   {"abc", "abd", -1},      {"B", "a", 1},
                 {"ab", "abc", -1},  {"a ", "a", 1},      {"", "a", -1},           {"_", "A", -1},
                 {"É", "é", 0},      {"É", "e", 1},       {"\u03A3", "\u03C2", 0}, {"z", "é", -1},
                 {"\u212A", "k", 0}, {"\u0131", "I", -2}, {"\u0130", "i", -2},     {"\u0416x", "\u0436X", 0}};
    for (const auto& c : cases) {
        const int order = CompareText(c.a, c.b);
        const int back = CompareText(c.b, c.a);
        if (c.order != -2) {
            EXPECT_EQ((order > 0) - (order < 0), c.order) << c.a << " and " << c.b;
        }
        EXPECT_EQ(order == 0, c.order == 0) << c.a << " and " << c.b;
        EXPECT_EQ((back > 0) - (back < 0), -((order > 0) - (order < 0))) << c.a << " and " << c.b;
        EXPECT_EQ(EqualText(c.a, c.b), c.order == 0) << c.a << " and " << c.b;
        EXPECT_EQ(FoldCase(c.a) == FoldCase(c.b), c.order == 0) << c.a << " and " << c.b;
    }
}

TEST(Text, Like) {
    const struct {
        const char *text, *pattern;
        bool like;
    } cases[] = {{"Cash", "cash", true},
                 {"Cash", "c%", true},
                 {"Cash", "%SH", true},
                 {"Cash", "%a%", true},
                 {"Cash", "c_s_", true},
                 {"Cash", "c_s", false},
                 {"Cash", "ash", false},
                 {"", "%", true},
                 {"", "", true},
                 {"", "_", false},
                 {"a", "", false},
                 {"ab", "a%%b", true},
                 {"abcbc", "a%bc", true},
                 {"abcbd", "a%bc", false},
                 {"a*b", "a*b", true},
                 {"axb", "a*b", false},
                 {"[a]", "[a]", true},
                 {"a", "[a]", false},
                 {"50%", "50%", true},
                 {"\u0939x", "_x", true},
                 {"\u0939x", "__x", false},
                 {"ÉCOLE", "%é%", true},
                 {"mississippi", "%iss%ip%", true},
                 {"mississippi", "%iss%iss%iss%", false},
                 {"a ", "a", false}};
    for (const auto& c : cases)
        EXPECT_EQ(LikeText(c.text, c.pattern), c.like) << c.text << " like " << c.pattern;
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
