#include "platform/basic/Decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "platform/basic/Error.h"

namespace basic {
namespace {

constexpr int SignificantDigits = 15;

void DropZeros(Decimal& decimal) {
    const std::size_t last = decimal.digits.find_last_not_of('0');
    decimal.digits.resize(last == std::string::npos ? 0 : last + 1);
    if (decimal.digits.empty()) decimal = {};
}

// Adds one to the last digit, carrying.
void Increase(Decimal& decimal) {
    for (std::size_t i = decimal.digits.size(); i-- > 0;) {
        if (decimal.digits[i] != '9') {
            ++decimal.digits[i];
            return;
        }
        decimal.digits[i] = '0';
    }
    decimal.digits.insert(0, 1, '1');
    ++decimal.point;
}

}  // namespace

Decimal Decimal::Of(double number) {
    std::array<char, 40> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::scientific, SignificantDigits - 1);
    const std::string written(text.data(), end.ptr);  // "-1.23456789012345e+02"
    const std::size_t e = written.find('e');
    Decimal decimal;
    if (e == std::string::npos) Raise(error::Overflow);  // not finite
    decimal.negative = written[0] == '-';
    for (const char c : written.substr(0, e))
        if (c >= '0' && c <= '9') decimal.digits += c;
    decimal.point = std::atoi(written.c_str() + e + 1) + 1;
    DropZeros(decimal);
    return decimal;
}

double Decimal::ToDouble() const {
    const std::string text =
        (negative ? "-0." : "0.") + (digits.empty() ? "0" : digits) + "e" + std::to_string(point);
    double number = 0;
    // Only the reading of the very largest numbers lies above them all.
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc())
        return std::copysign(std::numeric_limits<double>::max(), negative ? -1 : 1);
    return number;
}

Decimal Decimal::Rounded(int places, bool tieToEven) const {
    const int kept = point + places;
    if (kept >= static_cast<int>(digits.size())) return *this;
    Decimal rounded = *this;
    if (kept < 0) return {};
    const auto keep = static_cast<std::size_t>(kept);
    const bool tie = digits[keep] == '5' && keep + 1 == digits.size();
    const bool lastIsOdd = keep > 0 && (digits[keep - 1] - '0') % 2 == 1;
    rounded.digits.resize(keep);
    if (digits[keep] > '5' || (digits[keep] == '5' && !(tie && tieToEven && !lastIsOdd))) Increase(rounded);
    DropZeros(rounded);
    return rounded;
}

std::string Decimal::WholeDigits() const {
    if (point <= 0) return {};
    std::string whole = digits.substr(0, static_cast<std::size_t>(point));
    whole.resize(static_cast<std::size_t>(point), '0');
    return whole;
}

std::string Decimal::DecimalDigits(int places) const {
    std::string decimals(point < 0 ? static_cast<std::size_t>(-point) : 0, '0');
    if (point < static_cast<int>(digits.size()))
        decimals += digits.substr(static_cast<std::size_t>(point > 0 ? point : 0));
    decimals.resize(static_cast<std::size_t>(places), '0');
    return decimals;
}

}  // namespace basic
