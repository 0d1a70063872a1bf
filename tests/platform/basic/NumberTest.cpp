#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "platform/basic/Number.h"
#include "tests/platform/basic/Raises.h"

namespace {

using namespace basic;
using test::Raised;

constexpr double Infinite = std::numeric_limits<double>::infinity();

TEST(Number, TextHasFifteenDigitsAndNoMore) {
    const struct {
        double number;
        const char* text;
    } cases[] = {{0, "0"},
                 {-0.0, "0"},
                 {1500, "1500"},
                 {1500.5, "1500.5"},
                 {-0.5, "-0.5"},
                 {0.1 + 0.2, "0.3"},
                 {1234567.891, "1234567.891"},
                 {1.0 / 3, "0.333333333333333"},
                 {2.0 / 3, "0.666666666666667"},
                 {100.0 / 3, "33.3333333333333"},
                 {0.00001, "0.00001"},
                 {1.23456789012345e-05, "1.23456789012345E-05"},
                 {1e-15, "0.000000000000001"},
                 {1.5e-15, "1.5E-15"},
                 {1e-16, "1E-16"},
                 {999999999999999, "999999999999999"},
                 {123456789012345.6, "123456789012346"},
                 {999999999999999.6, "1E+15"},
                 {1e16, "1E+16"},
                 {-1.5e16, "-1.5E+16"},
                 {1e100, "1E+100"},
                 {1e-300, "1E-300"}};
    for (const auto& c : cases) EXPECT_EQ(NumberText(c.number), c.text);
    EXPECT_EQ(NumberText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
    EXPECT_EQ(Raised([] { NumberText(Infinite); }), error::Overflow);
    EXPECT_EQ(Raised([] { NumberText(std::nan("")); }), error::Overflow);
}

TEST(Number, WhatTextShowsReadsBackAlike) {
    std::mt19937_64 random(20010401);
    std::uniform_int_distribution<std::int64_t> digits(-999999999999999, 999999999999999);
    std::uniform_int_distribution<int> scale(-30, 30);
    for (int i = 0; i < 20000; ++i) {
        const std::string written = std::to_string(digits(random)) + "E" + std::to_string(scale(random));
        const double number = WholeNumber(written);
        ASSERT_EQ(PrefixValue(NumberText(number)), number) << written;
        ASSERT_EQ(WholeNumber(NumberText(number)), number) << written;
        ASSERT_EQ(PrefixValue(StrText(number)), number) << written;
    }
}

TEST(Number, OldTextHasABlankForTheSign) {
    const struct {
        double number;
        const char* text;
    } cases[] = {{0, " 0"},          {0.5, " .5"},     {-0.5, "-.5"},        {12, " 12"},
                 {-12.25, "-12.25"}, {1e16, " 1E+16"}, {1.5e-15, " 1.5E-15"}};
    for (const auto& c : cases) EXPECT_EQ(StrText(c.number), c.text);
}

TEST(Number, PrefixStopsWhereANumberCannotGoOn) {
    const struct {
        const char* text;
        double number;
    } cases[] = {{"1,234.50", 1}, {"999.50", 999.5}, {"", 0},        {"<New>", 0},    {"12", 12},
                 {"  7", 7},      {"1 234", 1},      {"- 5", 0},     {"-5-3", -5},    {"+3.", 3},
                 {".5", 0.5},     {"-.5x", -0.5},    {".", 0},       {"-", 0},        {"1.2.3", 1.2},
                 {"12abc", 12},   {"1E3", 1000},     {"1d2", 100},   {"1e-2x", 0.01}, {"1E", 1},
                 {"1E+", 1},      {"E5", 0},         {"&H10", 0},    {"Rs. 5", 0},    {"1500Dr", 1500},
                 {"--1", 0},      {"1e-999", 0},     {"0e99999", 0}, {"007", 7}};
    for (const auto& c : cases) EXPECT_EQ(PrefixValue(c.text), c.number) << c.text;
    // Long texts of small and of ordinary numbers, whose exponent alone does not tell their size.
    EXPECT_EQ(PrefixValue("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(PrefixValue("1" + std::string(400, '0') + "e-400"), 1);
    EXPECT_EQ(Raised([] { PrefixValue("1" + std::string(400, '0') + "e-10"); }), error::Overflow);
    EXPECT_EQ(Raised([] { PrefixValue("1E400"); }), error::Overflow);
}

TEST(Number, WholeReadingKnowsGroups) {
    const struct {
        const char* text;
        double number;
    } numeric[] = {{"1,234.50", 1234.5},
                   {"12,34,567.00", 1234567},
                   {"1,2", 12},
                   {" 12 ", 12},
                   {"-1,500", -1500},
                   {"+.5", 0.5},
                   {"5.", 5},
                   {"1E3", 1000},
                   {"0", 0},
                   {"1,000E-3", 1},
                   {"1E-999", 0}};
    for (const auto& c : numeric) {
        EXPECT_TRUE(IsNumeric(c.text)) << c.text;
        EXPECT_EQ(WholeNumber(c.text), c.number) << c.text;
    }
    for (const char* text : {"",     " ",     ".",     "-",        "-.",    ",",   "1,",  ",1",
                             "1,,2", "1.5,0", "1 2",   "- 1",      "1-",    "(1)", "12a", "1E",
                             "&H10", "Rs. 1", "1e999", "1/4/2001", "13:05", "inf", "nan", "\xC2\xA0 1"}) {
        EXPECT_FALSE(IsNumeric(text)) << text;
        EXPECT_EQ(Raised([&] { WholeNumber(text); }), error::TypeMismatch) << text;
    }
    EXPECT_FALSE(IsNumeric(Value()));
    EXPECT_FALSE(IsNumeric(Date{5}));
    EXPECT_TRUE(IsNumeric(true));
    EXPECT_TRUE(IsNumeric(2.5));
}

TEST(Number, RoundsByTheDecimalReading) {
    const struct {
        double number;
        int digits;
        double even, up;
    } cases[] = {{0.125, 2, 0.12, 0.13},
                 {2.675, 2, 2.68, 2.68},
                 {2.665, 2, 2.66, 2.67},
                 {1.005, 2, 1, 1.01},
                 {0.5, 0, 0, 1},
                 {1.5, 0, 2, 2},
                 {2.5, 0, 2, 3},
                 {-2.5, 0, -2, -3},
                 {-0.125, 2, -0.12, -0.13},
                 {0.1 + 0.2, 15, 0.3, 0.3},
                 {99.995, 2, 100, 100},
                 {0.005, 2, 0, 0.01},
                 {0.0049, 2, 0, 0},
                 {0.000001, 2, 0, 0},
                 {1e15, 2, 1e15, 1e15},
                 {2.50000000000001, 0, 3, 3}};
    for (const auto& c : cases) {
        EXPECT_EQ(Round(c.number, c.digits), c.even) << c.number;
        EXPECT_EQ(RoundHalfUp(c.number, c.digits), c.up) << c.number;
    }
    EXPECT_EQ(Round(std::numeric_limits<double>::max(), 2), std::numeric_limits<double>::max());
}

TEST(Number, IntegersRoundToEvenAndOverflow) {
    const struct {
        double number;
        std::int32_t rounded;
    } cases[] = {{0.5, 0},   {1.5, 2},  {2.5, 2},          {-0.5, 0},
                 {-1.5, -2}, {2.51, 3}, {32767.49, 32767}, {-32768.5, -32768}};
    for (const auto& c : cases) {
        EXPECT_EQ(ToLong(c.number), c.rounded) << c.number;
        EXPECT_EQ(ToInteger(c.number), c.rounded) << c.number;
    }
    EXPECT_EQ(ToLong(2147483647.49), 2147483647);
    EXPECT_EQ(ToLong(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    for (const double number : {32767.5, 32768.0, -32768.51, 1e300, Infinite, std::nan("")})
        EXPECT_EQ(Raised([&] { ToInteger(number); }), error::Overflow) << number;
    for (const double number : {2147483647.5, 2147483648.0, -2147483649.0, 1e300, -Infinite, std::nan("")})
        EXPECT_EQ(Raised([&] { ToLong(number); }), error::Overflow) << number;
}

}  // namespace
