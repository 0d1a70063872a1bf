#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/basic/Value.h"

namespace basic {

// The ordinary conversion of a number to text: up to 15 significant digits, no grouping, always '.', so
// "1500", "1500.5", "-0.5", "1E+16". It is plain as long as that takes at most 15 digits before and 15 behind
// the point. Statements are built with it, so the digits in the tables depend on it. Raises 6 "Overflow" for
// a number that is not finite.
std::string NumberText(double number);
std::string NumberText(std::int32_t number);

// The old conversion: a non-negative number gets a leading blank, and a 0 before the point is left out:
// " .5", "-.5".
std::string StrText(double number);

// The number formed by the longest numeric prefix: leading blanks and tabs are skipped, sign and exponent (E
// or D) are taken, the reading stops at the first character that cannot go on, so at a comma or an inner
// blank. PrefixValue("1,234.50") is 1, of "" it is 0. What is posted depends on it. Raises 6 "Overflow"
// beyond a double.
double PrefixValue(std::string_view text);

// Whether the whole text reads as a number, grouped ones ("1,234.50") included: blanks and tabs around it, a
// sign in front, single commas anywhere between the digits before the point, decimals, an exponent. "" and
// "." do not, nor do a sign behind, brackets, currency signs, "&H10", "1,", ",5" or what is beyond a double.
bool IsNumeric(const Value& value);  // numbers and booleans are numeric; Null and dates are not

// The whole reading of a text, grouped numbers included; raises 13 "Type mismatch" where IsNumeric is False.
double WholeNumber(std::string_view text);

// Rounds half to even at `digits` decimals, on the decimal reading of the number (15 digits): 0.125 at two
// decimals is 0.12.
double Round(double number, int digits);
// Rounds half away from zero at `digits` decimals, on the decimal reading: what Format does; 2.675
// gives 2.68.
double RoundHalfUp(double number, int digits);

std::int32_t ToLong(double number);     // half to even; raises 6 "Overflow"
std::int16_t ToInteger(double number);  // half to even; raises 6 "Overflow"

}  // namespace basic
