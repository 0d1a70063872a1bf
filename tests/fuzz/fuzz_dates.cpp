#include <cmath>
#include <string>

#include "platform/basic/Dates.h"
#include "platform/basic/Number.h"
#include "tests/fuzz/Check.h"

namespace {

using namespace basic;
using fuzz::Check;
using fuzz::ErrorOf;

void CheckDate(Date date, std::int32_t days) {
    const YearMonthDay parts = Parts(date);
    Check(MakeDate(parts.Year, parts.Month, parts.Day) == DatePart(date), "a date is made of its parts");
    const Date back = ReadDate(ToText(date));
    Check(DatePart(back) == DatePart(date), "a shown date reads back");
    Check(SecondsOfDay(back) == SecondsOfDay(date), "its time too");
    const double day = DatePart(date).Serial + days;
    if (!IsDateSerial(day)) {
        Check(ErrorOf([&] { AddDays(date, days); }) == error::Overflow, "days beyond the calendar overflow");
        return;
    }
    const Date moved = AddDays(date, days);
    Check(DatePart(moved).Serial == day && DaysBetween(date, moved) == days, "days count whole");
    Check(std::abs(SecondsOfDay(moved) - SecondsOfDay(date)) <= 1, "moving keeps the time of day");
}

void CheckText(const std::string& text, std::int32_t days) {
    if (!IsDate(text)) {
        Check(ErrorOf([&] { ReadDate(text); }) == error::TypeMismatch, "no date has no reading");
        return;
    }
    Check(!IsNumeric(text), "a date is no number");
    const Date date = ReadDate(text);
    Check(ReadDate(ToText(date)) == date, "a date that was read shows to the second");
    Check(ReadDate(" " + text + " ") == date, "blanks around do not count");
    CheckDate(date, days);
}

// A day and a month that a text may be read from, in the order of their places.
void CheckOrder(int first, int second, int year) {
    const std::string text =
        std::to_string(first) + "/" + std::to_string(second) + "/" + std::to_string(year);
    const bool monthFirst = second > 12;
    const std::int32_t error =
        ErrorOf([&] { MakeDate(year, monthFirst ? first : second, monthFirst ? second : first); });
    Check(IsDate(text) == (error == 0), "a text is a date where the calendar has the day");
    if (error == 0)
        Check(Parts(ReadDate(text)).Month == (monthFirst ? first : second), "day first unless it cannot be");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const auto days = input.Take<std::int32_t>();
    CheckText(std::string(input.Rest()), days);
    const auto serial = input.Take<double>();
    if (IsDateSerial(serial)) CheckDate({serial}, days);
    CheckDate({days / 86400.0}, days % 700000);
    const int first = input.Take<std::uint8_t>() % 33, second = input.Take<std::uint8_t>() % 33;
    CheckOrder(first, second, 100 + input.Take<std::uint16_t>() % 9900);
    return 0;
}
