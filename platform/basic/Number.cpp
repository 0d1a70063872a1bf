#include "platform/basic/Number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/basic/Decimal.h"
#include "platform/basic/Error.h"

namespace basic {
namespace {

constexpr int SignificantDigits = 15;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string Scientific(const Decimal& decimal) {
    const int exponent = decimal.point - 1;
    const std::string size = std::to_string(std::abs(exponent));
    std::string text = decimal.digits.substr(0, 1);
    if (decimal.digits.size() > 1) text += "." + decimal.digits.substr(1);
    return text + (exponent < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
}

// Plain notation as long as it takes at most 15 digits on either side of the point.
std::string Plain(const Decimal& decimal, bool leadingZero) {
    const int decimals = static_cast<int>(decimal.digits.size()) - decimal.point;
    if (decimal.point > SignificantDigits || decimals > SignificantDigits) return Scientific(decimal);
    std::string text = decimal.WholeDigits();
    if (text.empty() && leadingZero) text = "0";
    return decimals > 0 ? text + "." + decimal.DecimalDigits(decimals) : text;
}

// Takes a number off the front of a text: sign, digits (with commas between them if `grouped`), decimals,
// exponent.
struct NumberReader {
    std::string_view text;
    bool grouped = false;
    std::size_t at = 0;
    std::string clean;  // as the conversion wants it
    bool hasDigits = false;

    char Peek(std::size_t ahead = 0) const { return at + ahead < text.size() ? text[at + ahead] : '\0'; }
    void SkipBlanks() {
        while (Peek() == ' ' || Peek() == '\t') ++at;
    }
    void Digits(bool withCommas) {
        for (; IsDigit(Peek()) || (withCommas && hasDigits && Peek() == ',' && IsDigit(Peek(1))); ++at) {
            if (Peek() == ',') continue;
            clean += Peek();
            hasDigits = true;
        }
    }
    void Exponent() {
        const char letter = Peek();
        if (!hasDigits || (letter != 'e' && letter != 'E' && letter != 'd' && letter != 'D')) return;
        const std::size_t sign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
        if (!IsDigit(Peek(1 + sign))) return;
        clean += Peek(1) == '-' ? "e-" : "e+";
        for (at += 1 + sign; IsDigit(Peek()); ++at) clean += Peek();
    }
    void Read() {
        SkipBlanks();
        if (Peek() == '-') clean += '-';
        if (Peek() == '-' || Peek() == '+') ++at;
        Digits(grouped);
        if (Peek() == '.') {
            clean += '.';
            ++at;
            Digits(false);
        }
        Exponent();
    }
    // Of a number out of range: whether it is too small, so 0, rather than too large.
    bool IsTiny() const {
        const std::size_t e = std::min(clean.find('e'), clean.size());
        const std::size_t point = std::min(clean.find('.'), e);
        const auto first = static_cast<std::int64_t>(clean.find_first_of("123456789"));
        std::int64_t exponent = 0;
        if (e < clean.size()) {
            const char* sign = clean.data() + e + 1;
            const char* digits = *sign == '-' ? sign : sign + 1;
            if (std::from_chars(digits, clean.data() + clean.size(), exponent).ec != std::errc())
                return *sign == '-';
        }
        return exponent < first - static_cast<std::int64_t>(point);
    }
    // nullopt: too large for a number.
    std::optional<double> Number() const {
        if (!hasDigits) return 0;
        double number = 0;
        const auto result = std::from_chars(clean.data(), clean.data() + clean.size(), number);
        if (result.ec == std::errc()) return number;
        return IsTiny() ? std::optional(0.0) : std::nullopt;
    }
};

std::optional<double> ReadWhole(std::string_view text) {
    NumberReader reader{.text = text, .grouped = true, .at = 0, .clean = {}, .hasDigits = false};
    reader.Read();
    reader.SkipBlanks();
    if (!reader.hasDigits || reader.at != text.size()) return std::nullopt;
    return reader.Number();
}

template <class Integer>
Integer RoundTo(double number) {
    const double rounded = std::nearbyint(number);  // half to even
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        Raise(error::Overflow);
    return static_cast<Integer>(rounded);
}

}  // namespace

std::string NumberText(double number) {
    const Decimal decimal = Decimal::Of(number);
    if (decimal.digits.empty()) return "0";
    return (decimal.negative ? "-" : "") + Plain(decimal, true);
}

std::string NumberText(std::int32_t number) {
    return std::to_string(number);
}

std::string StrText(double number) {
    const Decimal decimal = Decimal::Of(number);
    if (decimal.digits.empty()) return " 0";
    return (decimal.negative ? "-" : " ") + Plain(decimal, false);
}

double PrefixValue(std::string_view text) {
    NumberReader reader{.text = text, .grouped = false, .at = 0, .clean = {}, .hasDigits = false};
    reader.Read();
    const std::optional<double> number = reader.Number();
    if (!number) Raise(error::Overflow);
    return *number;
}

bool IsNumeric(const Value& value) {
    if (const auto* text = value.As<std::string>()) return ReadWhole(*text).has_value();
    return !value.IsNull() && !value.Is<Date>();
}

double WholeNumber(std::string_view text) {
    const std::optional<double> number = ReadWhole(text);
    if (!number) Raise(error::TypeMismatch);
    return *number;
}

double Round(double number, int digits) {
    return Decimal::Of(number).Rounded(digits, true).ToDouble();
}
double RoundHalfUp(double number, int digits) {
    return Decimal::Of(number).Rounded(digits, false).ToDouble();
}

std::int32_t ToLong(double number) {
    return RoundTo<std::int32_t>(number);
}
std::int16_t ToInteger(double number) {
    return RoundTo<std::int16_t>(number);
}

}  // namespace basic
