#include <limits>

#include <gtest/gtest.h>

#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"
#include "tests/support/Cases.h"
#include "tests/support/ErrorOf.h"

namespace {

using namespace basic;
using test::Cases;
using test::Cells;
using test::ErrorOf;

constexpr const char* File = "platform/basic/cases.txt";

class FormatTest : public testing::Test {
  protected:
    FormatTest() { SetNumberLocale("C"); }
    ~FormatTest() override { SetNumberLocale("C"); }
};

TEST_F(FormatTest, NumberMasks) {
    const std::vector<Cells> rows = Cases(File, "Masks");
    for (std::size_t row = 1; row < rows.size(); ++row)
        for (std::size_t mask = 1; mask < rows[0].size(); ++mask)
            EXPECT_EQ(Format(std::stod(rows[row].at(0)), rows[0][mask]), rows[row].at(mask))
                << rows[row][0] << " as " << rows[0][mask];
}

TEST_F(FormatTest, OnlyStandardFollowsTheLocale) {
    for (const Cells& c : Cases(File, "Locales")) {
        SetNumberLocale(c.at(0));
        EXPECT_EQ(Format(-1234567.5, "standard"), c.at(1)) << c.at(0);
        EXPECT_EQ(Format(-1234567.5, "#,##,###.00"), "-1,234,567.50") << c.at(0);
        EXPECT_EQ(Format(-1234567.5, "######.00"), "-1234567.50") << c.at(0);
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
        EXPECT_EQ(ErrorOf([&] { Format(1.0, mask); }), error::InvalidCall) << mask;
    EXPECT_EQ(ErrorOf([] { Format(Value(), "unknown"); }), error::InvalidCall);
    for (const double serial : {1e300, 2958466.0, -657435.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(ErrorOf([&] { Format(serial, "dd/MM/yyyy"); }), error::Overflow) << serial;
        EXPECT_EQ(ErrorOf([&] { Format(Date{serial}, "hh:mm:ss"); }), error::Overflow) << serial;
    }
    EXPECT_EQ(ErrorOf([] { Format(std::numeric_limits<double>::infinity(), "0.00"); }), error::Overflow);
}

}  // namespace
