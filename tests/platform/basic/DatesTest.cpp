#include <cmath>

#include <gtest/gtest.h>

#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "tests/support/Cases.h"
#include "tests/support/ErrorOf.h"

namespace {

using namespace basic;
using test::Cases;
using test::Cells;
using test::ErrorOf;

constexpr const char* File = "platform/basic/cases.txt";

std::string Shown(Date date) {
    return ToText(date);
}

TEST(Dates, SerialsCountFromTheFixedZero) {
    const struct {
        int year, month, day;
        double serial;
    } cases[] = {{1899, 12, 30, 0},    {1900, 1, 1, 2},     {1899, 12, 29, -1},   {1900, 3, 1, 61},
                 {2000, 2, 29, 36585}, {2001, 4, 1, 36982}, {100, 1, 1, -657434}, {9999, 12, 31, 2958465}};
    for (const auto& c : cases) {
        EXPECT_EQ(MakeDate(c.year, c.month, c.day).Serial, c.serial);
        const YearMonthDay parts = Parts({c.serial});
        EXPECT_EQ(parts.Year, c.year);
        EXPECT_EQ(parts.Month, c.month);
        EXPECT_EQ(parts.Day, c.day);
    }
    const int wrong[][3] = {{2001, 2, 29}, {1900, 2, 29}, {2001, 4, 31}, {2001, 13, 1}, {2001, 0, 1},
                            {2001, 1, 0},  {99, 1, 1},    {10000, 1, 1}, {2001, -1, 1}, {2001, 257, 1}};
    for (const auto& [year, month, day] : wrong)
        EXPECT_EQ(ErrorOf([&] { MakeDate(year, month, day); }), error::InvalidCall) << year << month << day;
}

TEST(Dates, TheTimeOfDayStaysWithItsDay) {
    const struct {
        double serial;
        int days;
        const char* shown;
    } cases[] = {{36982.25, 0, "01/04/2001 06:00:00"}, {36982.25, -36984, "28/12/1899 06:00:00"},
                 {-1.25, 0, "29/12/1899 06:00:00"},    {-1.25, 2, "31/12/1899 06:00:00"},
                 {-0.25, 0, "30/12/1899 06:00:00"},    {36982, 365, "01/04/2002"}};
    for (const auto& c : cases) EXPECT_EQ(Shown(AddDays({c.serial}, c.days)), c.shown);
    const double beforeMidnight = std::nextafter(2, 1);
    EXPECT_EQ(DatePart(AddDays({beforeMidnight}, 1000)).Serial, 1001);
    EXPECT_EQ(DatePart({-1.25}).Serial, -1);
    EXPECT_EQ(DatePart({36982.75}).Serial, 36982);
    EXPECT_EQ(DaysBetween({36982.9}, {36983.1}), 1);
    EXPECT_EQ(DaysBetween({36982}, {0.5}), -36982);
    for (const std::int32_t days : {2958466, -700000, INT32_MAX, INT32_MIN})
        EXPECT_EQ(ErrorOf([&] { AddDays({0}, days); }), error::Overflow) << days;
    EXPECT_EQ(ErrorOf([] { Parts({1e300}); }), error::Overflow);
}

TEST(Dates, UsualFormsDayFirst) {
    for (const Cells& c : Cases(File, "Dates")) {
        ASSERT_TRUE(IsDate(c.at(0))) << c.at(0);
        EXPECT_EQ(Shown(ReadDate(c.at(0))), c.at(1)) << c.at(0);
    }
}

TEST(Dates, OtherTextsAreNoDates) {
    for (const Cells& c : Cases(File, "No dates")) {
        const std::string& text = c.at(0);
        EXPECT_FALSE(IsDate(text)) << text;
        EXPECT_EQ(ErrorOf([&] { ReadDate(text); }), error::TypeMismatch) << text;
    }
    EXPECT_TRUE(IsDate(Date{1}));
    EXPECT_FALSE(IsDate(Value()));
    EXPECT_FALSE(IsDate(36982.0));
}

TEST(Clock, StopsWhereATestSetsIt) {
    Clock::Set(Date{36982.5});
    EXPECT_EQ(Clock::Now(), Date{36982.5});
    EXPECT_EQ(Clock::Today(), Date{36982});
    Clock::Set(std::nullopt);
    EXPECT_GT(Clock::Now(), Date{45000});
}

}  // namespace
