#include <limits>

#include <gtest/gtest.h>

#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"
#include "tests/platform/basic/Raises.h"

namespace {

using namespace basic;
using test::Raised;

class FormatTest : public testing::Test {
  protected:
    FormatTest() { SetNumberLocale("C"); }
    ~FormatTest() override { SetNumberLocale("C"); }
};

TEST_F(FormatTest, NumberMasks) {
    const struct {
        double number;
        const char *amount, *padded, *plain, *whole, *least, *standard;
    } cases[] = {
        {0, ".00", "00.00", ".00", "", "0.00", "0.00"},
        {0.5, ".50", "00.50", ".50", "1", "0.50", "0.50"},
        {0.004, ".00", "00.00", ".00", "", "0.00", "0.00"},
        {-0.004, ".00", "00.00", ".00", "", "0.00", "0.00"},
        {-0.5, "-.50", "-00.50", "-.50", "-1", "-0.50", "-0.50"},
        {0.4, ".40", "00.40", ".40", "", "0.40", "0.40"},
        {5, "5.00", "05.00", "5.00", "5", "5.00", "5.00"},
        {0.995, "1.00", "01.00", "1.00", "1", "1.00", "1.00"},
        {2.675, "2.68", "02.68", "2.68", "3", "2.68", "2.68"},
        {999.995, "1,000.00", "1,000.00", "1000.00", "1,000", "1000.00", "1,000.00"},
        {-1249.85, "-1,249.85", "-1,249.85", "-1249.85", "-1,250", "-1249.85", "-1,249.85"},
        {1234567, "1,234,567.00", "1,234,567.00", "1234567.00", "1,234,567", "1234567.00", "1,234,567.00"},
        {100000, "100,000.00", "100,000.00", "100000.00", "100,000", "100000.00", "100,000.00"},
        {1e16, "10,000,000,000,000,000.00", "10,000,000,000,000,000.00", "10000000000000000.00",
         "10,000,000,000,000,000", "10000000000000000.00", "10,000,000,000,000,000.00"}};
    for (const auto& c : cases) {
        EXPECT_EQ(Format(c.number, "#,##,###.00"), c.amount) << c.number;
        EXPECT_EQ(Format(c.number, "##,#00.00"), c.padded) << c.number;
        EXPECT_EQ(Format(c.number, "######.00"), c.plain) << c.number;
        EXPECT_EQ(Format(c.number, "#,##,###"), c.whole) << c.number;
        EXPECT_EQ(Format(c.number, "0.00"), c.least) << c.number;
        EXPECT_EQ(Format(c.number, "Standard"), c.standard) << c.number;
    }
}

TEST_F(FormatTest, OnlyStandardFollowsTheLocale) {
    const struct {
        const char *locale, *standard;
    } cases[] = {{"en_IN.UTF-8", "-12,34,567.50"},
                 {"hi_IN", "-12,34,567.50"},
                 {"en_US.UTF-8", "-1,234,567.50"},
                 {"C", "-1,234,567.50"},
                 {"C.UTF-8", "-1,234,567.50"},
                 {"POSIX", "-1,234,567.50"},
                 {"", "-1,234,567.50"},
                 {"xx_YY", "-1,234,567.50"},
                 {"de_DE@euro", "-1.234.567,50"},
                 {"es_MX", "-1,234,567.50"}};
    for (const auto& c : cases) {
        SetNumberLocale(c.locale);
        EXPECT_EQ(Format(-1234567.5, "standard"), c.standard) << c.locale;
        EXPECT_EQ(Format(-1234567.5, "#,##,###.00"), "-1,234,567.50") << c.locale;
        EXPECT_EQ(Format(-1234567.5, "######.00"), "-1234567.50") << c.locale;
    }
    SetNumberLocale("en_IN");
    EXPECT_EQ(Format(99999.0, "standard"), "99,999.00");
    EXPECT_EQ(Format(100000.0, "standard"), "1,00,000.00");
}

TEST_F(FormatTest, ReadsTextsByTheirContent) {
    const struct {
        Value value;
        const char *mask, *text;
    } cases[] = {{Value(), "0.00", ""},
                 {Value(), "dd/MM/yyyy", ""},
                 {"", "######.00", ""},
                 {"", "dd-MMM-yyyy", ""},
                 {"1,234.50", "######.00", "1234.50"},
                 {" 5 ", "0.00", "5.00"},
                 {"abc", "#,##,###.00", "abc"},
                 {"01/04/2001", "0.00", "01/04/2001"},
                 {"1500Dr", "#,##,###.00", "1500Dr"},
                 {"1/4/2001", "dd-MMM-yyyy", "01-Apr-2001"},
                 {"no date", "dd-MMM-yyyy", "no date"},
                 {"36982", "dd/MM/yyyy", "01/04/2001"},
                 {"99999999", "dd/MM/yyyy", "99999999"},
                 {36982.0, "dd-MMM-yyyy", "01-Apr-2001"},
                 {std::int32_t{0}, "dd/MM/yyyy", "30/12/1899"},
                 {Date{36982.5}, "0.00", "36982.50"},
                 {std::int16_t{7}, "##,#00.00", "07.00"},
                 {true, "0.00", "-1.00"}};
    for (const auto& c : cases) EXPECT_EQ(Format(c.value, c.mask), c.text) << c.mask << " to give " << c.text;
}

TEST_F(FormatTest, Dates) {
    const Date leap = MakeDate(2004, 2, 29);
    EXPECT_EQ(Format(leap, "dd-MMM-yyyy"), "29-Feb-2004");
    EXPECT_EQ(Format(leap, "dd/MM/yyyy"), "29/02/2004");
    EXPECT_EQ(Format(Date{leap.Serial + 0.75}, "dd/MM/yyyy"), "29/02/2004");
    EXPECT_EQ(Format(MakeDate(100, 1, 1), "dd/MM/yyyy"), "01/01/0100");
    const struct {
        double serial;
        const char* time;
    } times[] = {{0, "00:00:00"},
                 {0.75, "18:00:00"},
                 {-1.25, "06:00:00"},
                 {36982 + 47105 / 86400.0, "13:05:05"},
                 {5.9999999, "23:59:59"}};
    for (const auto& c : times) EXPECT_EQ(Format(Date{c.serial}, "hh:mm:ss"), c.time) << c.serial;
}

TEST_F(FormatTest, RefusesWhatItDoesNotKnow) {
    for (const char* mask : {"", "#", "0.000", "dd/mm/yyyy", "STANDARD ", "#,##0.00"})
        EXPECT_EQ(Raised([&] { Format(1.0, mask); }), error::InvalidCall) << mask;
    EXPECT_EQ(Raised([] { Format(Value(), "unknown"); }), error::InvalidCall);
    for (const double serial : {1e300, 2958466.0, -657435.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(Raised([&] { Format(serial, "dd/MM/yyyy"); }), error::Overflow) << serial;
        EXPECT_EQ(Raised([&] { Format(Date{serial}, "hh:mm:ss"); }), error::Overflow) << serial;
    }
    EXPECT_EQ(Raised([] { Format(std::numeric_limits<double>::infinity(), "0.00"); }), error::Overflow);
}

}  // namespace
