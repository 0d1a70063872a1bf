#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace basic {

struct Null {
    friend bool operator==(Null, Null) = default;
};

// A point in time: Serial counts days from 30-Dec-1899, its fraction is the time of day.
struct Date {
    double Serial = 0;
    friend auto operator<=>(const Date&, const Date&) = default;
};

// A value as fields, arguments and formats carry it: Null, boolean, 16- and 32-bit integer, double, date or
// text (UTF-8). Equality is exact: same kind, same content.
class Value {
  public:
    Value() = default;  // Null
    Value(Null) {}
    Value(bool b) : held_(b) {}
    Value(std::int16_t i) : held_(i) {}
    Value(std::int32_t i) : held_(i) {}
    Value(double d) : held_(d) {}
    Value(Date d) : held_(d) {}
    Value(std::string text) : held_(std::move(text)) {}
    Value(std::string_view text) : held_(std::string(text)) {}
    Value(const char* text) : held_(std::string(text)) {}

    bool IsNull() const { return std::holds_alternative<Null>(held_); }
    template <class T>
    bool Is() const {
        return std::holds_alternative<T>(held_);
    }
    template <class T>
    const T* As() const {
        return std::get_if<T>(&held_);
    }
    template <class Visitor>
    decltype(auto) Visit(Visitor&& visitor) const {
        return std::visit(std::forward<Visitor>(visitor), held_);
    }

    friend bool operator==(const Value&, const Value&) = default;

  private:
    friend std::string TextOrEmpty(Value&& value);

    std::variant<Null, bool, std::int16_t, std::int32_t, double, Date, std::string> held_;
};

// Conversions. Each raises 94 "Invalid use of Null" for Null and 13 "Type mismatch" for a text that is no
// number.
std::string ToText(const Value& value);   // "1500", "1500.5", "True", "01/04/2001", "01/04/2001 13:05:00"
double ToDouble(const Value& value);      // texts by the whole reading that knows grouped numbers; True is -1
std::int32_t ToLong(const Value& value);  // rounds half to even; raises 6 "Overflow" beyond 32 bits
std::int16_t ToInteger(const Value& value);  // the same in 16 bits
bool ToBoolean(const Value& value);          // any number but 0 is True; "True" and "False" are read
// Numbers are serials, raises 6 beyond the years 100 to 9999; texts as IsDate takes them.
Date ToDate(const Value& value);

std::string TextOrEmpty(const Value& value);  // ToText, but Null joined to a text reads ""
std::string TextOrEmpty(Value&& value);       // the same; a text is taken out, not copied
double NumberOrZero(const Value& value);      // ToDouble, but Null reads 0

}  // namespace basic
