#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "platform/basic/Number.h"
#include "tests/support/Cases.h"
#include "tests/support/ErrorOf.h"

namespace {

using namespace basic;
using test::Cases;
using test::Cells;
using test::ErrorOf;

constexpr const char* File = "platform/basic/cases.txt";

constexpr double Infinite = std::numeric_limits<double>::infinity();

TEST(Number, TextHasFifteenDigitsAndNoMore) {
    for (const Cells& c : Cases(File, "Fifteen digits"))
        EXPECT_EQ(NumberText(std::strtod(c.at(0).c_str(), nullptr)), c.at(1));
    EXPECT_EQ(NumberText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
    EXPECT_EQ(ErrorOf([] { NumberText(Infinite); }), error::Overflow);
    EXPECT_EQ(ErrorOf([] { NumberText(std::nan("")); }), error::Overflow);
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
    for (const Cells& c : Cases(File, "Old texts")) EXPECT_EQ(StrText(std::stod(c.at(0))), c.at(1));
}

TEST(Number, PrefixStopsWhereANumberCannotGoOn) {
    for (const Cells& c : Cases(File, "Numbers at the head of a text"))
        EXPECT_EQ(PrefixValue(c.at(0)), std::stod(c.at(1))) << c.at(0);
    // Long texts of small and of ordinary numbers, whose exponent alone does not tell their size.
    EXPECT_EQ(PrefixValue("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(PrefixValue("1" + std::string(400, '0') + "e-400"), 1);
    EXPECT_EQ(ErrorOf([] { PrefixValue("1" + std::string(400, '0') + "e-10"); }), error::Overflow);
    EXPECT_EQ(ErrorOf([] { PrefixValue("1E400"); }), error::Overflow);
}

TEST(Number, WholeReadingKnowsGroups) {
    for (const Cells& c : Cases(File, "Whole numbers")) {
        EXPECT_TRUE(IsNumeric(c.at(0))) << c.at(0);
        EXPECT_EQ(WholeNumber(c.at(0)), std::stod(c.at(1))) << c.at(0);
    }
    for (const char* text : {"",     " ",     ".",     "-",        "-.",    ",",   "1,",  ",1",
                             "1,,2", "1.5,0", "1 2",   "- 1",      "1-",    "(1)", "12a", "1E",
                             "&H10", "Rs. 1", "1e999", "1/4/2001", "13:05", "inf", "nan", "\xC2\xA0 1"}) {
        EXPECT_FALSE(IsNumeric(text)) << text;
        EXPECT_EQ(ErrorOf([&] { WholeNumber(text); }), error::TypeMismatch) << text;
    }
    EXPECT_FALSE(IsNumeric(Value()));
    EXPECT_FALSE(IsNumeric(Date{5}));
    EXPECT_TRUE(IsNumeric(true));
    EXPECT_TRUE(IsNumeric(2.5));
}

TEST(Number, RoundsByTheDecimalReading) {
    for (const Cells& c : Cases(File, "Rounding")) {
        EXPECT_EQ(Round(std::stod(c.at(0)), std::stoi(c.at(1))), std::stod(c.at(2))) << c.at(0);
        EXPECT_EQ(RoundHalfUp(std::stod(c.at(0)), std::stoi(c.at(1))), std::stod(c.at(3))) << c.at(0);
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
        EXPECT_EQ(ErrorOf([&] { ToInteger(number); }), error::Overflow) << number;
    for (const double number : {2147483647.5, 2147483648.0, -2147483649.0, 1e300, -Infinite, std::nan("")})
        EXPECT_EQ(ErrorOf([&] { ToLong(number); }), error::Overflow) << number;
}

}  // namespace
