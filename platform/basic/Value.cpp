#include "platform/basic/Value.h"

#include "platform/basic/Dates.h"
#include "platform/basic/Error.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace basic {
namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

std::string DateText(Date date) {
    const std::string day = Format(date, "dd/MM/yyyy");
    return SecondsOfDay(date) == 0 ? day : day + " " + Format(date, "hh:mm:ss");
}

}  // namespace

std::string ToText(const Value& value) {
    return value.Visit(Overloaded{[](Null) -> std::string { Raise(error::InvalidNull); },
                                  [](bool b) -> std::string { return b ? "True" : "False"; },
                                  [](std::int16_t i) { return NumberText(std::int32_t{i}); },
                                  [](std::int32_t i) { return NumberText(i); },
                                  [](double d) { return NumberText(d); }, [](Date d) { return DateText(d); },
                                  [](const std::string& text) { return text; }});
}

double ToDouble(const Value& value) {
    return value.Visit(Overloaded{
        [](Null) -> double { Raise(error::InvalidNull); }, [](bool b) { return b ? -1.0 : 0.0; },
        [](std::int16_t i) { return static_cast<double>(i); },
        [](std::int32_t i) { return static_cast<double>(i); }, [](double d) { return d; },
        [](Date d) { return d.Serial; }, [](const std::string& text) { return WholeNumber(text); }});
}

std::int32_t ToLong(const Value& value) {
    return ToLong(ToDouble(value));
}
std::int16_t ToInteger(const Value& value) {
    return ToInteger(ToDouble(value));
}

bool ToBoolean(const Value& value) {
    if (const auto* text = value.As<std::string>()) {
        if (EqualText(*text, "True")) return true;
        if (EqualText(*text, "False")) return false;
    }
    return ToDouble(value) != 0;
}

Date ToDate(const Value& value) {
    if (const auto* text = value.As<std::string>())
        if (!IsNumeric(value)) return ReadDate(*text);
    const Date date{ToDouble(value)};
    if (!IsDateSerial(date.Serial)) Raise(error::Overflow);
    return date;
}

std::string TextOrEmpty(const Value& value) {
    return value.IsNull() ? std::string() : ToText(value);
}
std::string TextOrEmpty(Value&& value) {
    if (auto* text = std::get_if<std::string>(&value.held_)) return std::move(*text);
    return TextOrEmpty(static_cast<const Value&>(value));
}
double NumberOrZero(const Value& value) {
    return value.IsNull() ? 0 : ToDouble(value);
}

}  // namespace basic
