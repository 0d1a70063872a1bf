#include <limits>

#include <gtest/gtest.h>

#include "platform/basic/Dates.h"
#include "platform/basic/Value.h"
#include "tests/support/ErrorOf.h"

namespace {

using namespace basic;
using test::ErrorOf;

TEST(Value, ToText) {
    const struct {
        Value value;
        const char* text;
    } cases[] = {{true, "True"},
                 {false, "False"},
                 {std::int16_t{-5}, "-5"},
                 {std::int32_t{70000}, "70000"},
                 {1500.0, "1500"},
                 {1500.5, "1500.5"},
                 {0.1 + 0.2, "0.3"},
                 {" as it is ", " as it is "},
                 {MakeDate(2001, 4, 1), "01/04/2001"},
                 {Date{36982.5}, "01/04/2001 12:00:00"}};
    for (const auto& c : cases) {
        EXPECT_EQ(ToText(c.value), c.text);
        EXPECT_EQ(TextOrEmpty(c.value), c.text);
    }
    EXPECT_EQ(TextOrEmpty(Value()), "");
}

TEST(Value, ToNumbers) {
    const struct {
        Value value;
        double number;
        std::int32_t rounded;
    } cases[] = {{true, -1, -1},
                 {false, 0, 0},
                 {std::int16_t{7}, 7, 7},
                 {2.5, 2.5, 2},
                 {"1,234.50", 1234.5, 1234},
                 {" 3.5 ", 3.5, 4},
                 {Date{2.25}, 2.25, 2}};
    for (const auto& c : cases) {
        EXPECT_EQ(ToDouble(c.value), c.number);
        EXPECT_EQ(NumberOrZero(c.value), c.number);
        EXPECT_EQ(ToLong(c.value), c.rounded);
        EXPECT_EQ(ToInteger(c.value), c.rounded);
    }
    EXPECT_EQ(NumberOrZero(Value()), 0);
    EXPECT_EQ(ErrorOf([] { ToInteger(Value("32768")); }), error::Overflow);
    EXPECT_EQ(ErrorOf([] { ToLong(Value("2147483648")); }), error::Overflow);
}

TEST(Value, ToBoolean) {
    for (const Value& value :
         {Value(true), Value("true"), Value("TRUE"), Value("-1"), Value(0.1), Value("2")})
        EXPECT_TRUE(ToBoolean(value));
    for (const Value& value : {Value(false), Value("False"), Value("0"), Value(0.0), Value(std::int32_t{0})})
        EXPECT_FALSE(ToBoolean(value));
    EXPECT_EQ(ErrorOf([] { ToBoolean(Value("yes")); }), error::TypeMismatch);
}

TEST(Value, ToDate) {
    for (const Value& value :
         {Value(36982.0), Value(std::int32_t{36982}), Value("1/4/2001"), Value("36,982"), Value(Date{36982})})
        EXPECT_EQ(ToDate(value), Date{36982});
    for (const Value& value : {Value(1e10), Value("1E10"), Value(std::numeric_limits<double>::quiet_NaN())})
        EXPECT_EQ(ErrorOf([&] { ToDate(value); }), error::Overflow);
}

TEST(Value, NullAndForeignTextsAreRefused) {
    const auto each = [](const Value& value) {
        return std::vector<std::int32_t>{ErrorOf([&] { ToDouble(value); }), ErrorOf([&] { ToLong(value); }),
                                         ErrorOf([&] { ToInteger(value); }),
                                         ErrorOf([&] { ToBoolean(value); }), ErrorOf([&] { ToDate(value); })};
    };
    EXPECT_EQ(each(Value()), std::vector<std::int32_t>(5, error::InvalidNull));
    EXPECT_EQ(ErrorOf([] { ToText(Value()); }), error::InvalidNull);
    for (const char* text : {"", "abc", ".", "12 a"})
        EXPECT_EQ(each(text), std::vector<std::int32_t>(5, error::TypeMismatch)) << text;
    EXPECT_EQ(ErrorOf([] { NumberOrZero(Value("")); }), error::TypeMismatch);
    EXPECT_EQ(ErrorOf([] { TextOrEmpty(std::numeric_limits<double>::infinity()); }), error::Overflow);
}

TEST(Value, EqualityIsExact) {
    EXPECT_EQ(Value(), Value(Null{}));
    EXPECT_NE(Value(std::int16_t{1}), Value(std::int32_t{1}));
    EXPECT_NE(Value(1.0), Value("1"));
    EXPECT_NE(Value(Date{1}), Value(1.0));
    EXPECT_NE(Value("a"), Value("A"));
}

}  // namespace
