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

Date MakeDate(int year, int month,
              int day);                      // raises 5 "Invalid procedure call or argument" for no real date
YearMonthDay Parts(Date date);               // of its calendar day
Date DatePart(Date date);                    // the date without its time of day
Date AddDays(Date date, std::int32_t days);  // raises 6 "Overflow" outside the years 100 to 9999
std::int32_t DaysBetween(Date from, Date to);  // whole calendar days, negative if `to` is earlier

// The usual forms, day first: "1/4/2001", "01-04-2001", "01-Apr-2001", "1 April 2001", "2001-04-01", each
// with an optional time of day ("13:05", "1:05:30 PM"). A day above 12 in second place is read month first,
// as of old. Two-digit years are 1930 to 2029. A plain number is no date.
bool IsDate(const Value& value);
Date ReadDate(std::string_view text);  // raises 13 "Type mismatch" where IsDate is False

}  // namespace basic
