#pragma once

#include <cstdint>
#include <string_view>

#include "platform/basic/Value.h"

namespace basic {

struct YearMonthDay {
    int Year;   // 100 to 9999
    int Month;  // 1 to 12
    int Day;    // 1 to 31
};

// Raises 5 "Invalid procedure call or argument" for no real date.
Date MakeDate(int year, int month, int day);

// Whether a serial lies in the years 100 to 9999. Every routine below raises 6 "Overflow" for a date that
// does not, or for a result outside.
bool IsDateSerial(double serial);

YearMonthDay Parts(Date date);  // of its calendar day
// The time of day in whole seconds, rounded, 86399 at most so that the day stays what it is. The fraction of
// a serial is the time whatever its sign, as of old: -1.25 is 06:00 on 29-Dec-1899.
int SecondsOfDay(Date date);
Date DatePart(Date date);                      // the date without its time of day
Date AddDays(Date date, std::int32_t days);    // keeps the time of day
std::int32_t DaysBetween(Date from, Date to);  // whole calendar days, negative if `to` is earlier

// The usual forms, day first: "1/4/2001", "01-04-2001", "01-Apr-2001", "1 April 2001", "April 1, 2001",
// "2001-04-01", each with an optional time of day ("13:05", "1:05:30 PM"), or a time alone. A day above 12 in
// second place is read month first, as of old. Two-digit years are 1930 to 2029. A plain or grouped number is
// no date.
bool IsDate(const Value& value);
Date ReadDate(std::string_view text);  // raises 13 "Type mismatch" where IsDate is False

}  // namespace basic
