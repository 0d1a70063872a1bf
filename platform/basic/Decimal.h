#pragma once

#include <string>

namespace basic {

// A number as its decimal reading of up to 15 significant digits: what texts, formats and rounding go by, so
// that 2.675 is just that and not the binary fraction below it. The value is 0.d1d2d3... times ten to the
// power of `point`.
struct Decimal {
    bool negative = false;
    std::string digits;  // without zeros at either end; "" is zero
    int point = 0;       // digits before the decimal point; may be negative or beyond the digits

    static Decimal Of(double number);  // raises 6 "Overflow" for an infinite number or none at all
    double ToDouble() const;

    // Rounded at `places` decimals; a tie goes away from zero, or to the even digit.
    Decimal Rounded(int places, bool tieToEven) const;

    std::string WholeDigits() const;              // "" below 1
    std::string DecimalDigits(int places) const;  // exactly `places`, filled up with zeros
};

}  // namespace basic
