#include "platform/ado/store/Conversion.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "platform/ado/dialect/Refusal.h"
#include "platform/basic/Error.h"

namespace ado {
namespace {

using basic::Value;

Value Convert(ColumnType type, const Value& value) {
    switch (type) {
        case ColumnType::Boolean:
            return basic::ToBoolean(value);
        case ColumnType::Integer:
            return basic::ToInteger(value);
        case ColumnType::Long:
            return basic::ToLong(value);
        case ColumnType::Double: {
            const double number = basic::ToDouble(value);
            if (!std::isfinite(number)) basic::Raise(basic::error::Overflow, "ado.Statement");
            return number;
        }
        case ColumnType::Text:
            return basic::ToText(value);
        case ColumnType::Any:
            break;
    }
    return value;
}

// As the embedded store reads a text beside numbers: blanks around it, no grouping; any other text stands
// above all numbers.
double MeasureOf(std::string_view text) {
    constexpr std::string_view blanks = " \t\n\v\f\r";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(blanks) + 1));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    const auto [rest, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = !text.empty() && text.find_first_of("0123456789.") == 0 &&
                          rest == text.data() + text.size() && failure != std::errc::invalid_argument;
    if (!isNumber || failure == std::errc::result_out_of_range)
        number = std::numeric_limits<double>::infinity();
    return isNumber && negative ? -number : number;
}

struct Binder {
    EngineStatement& statement;
    int index;
    void operator()(basic::Null) const { statement.BindNull(index); }
    void operator()(bool b) const { statement.BindBoolean(index, b); }
    void operator()(std::int16_t i) const { statement.BindInteger(index, i); }
    void operator()(std::int32_t i) const { statement.BindInteger(index, i); }
    void operator()(double d) const { statement.BindReal(index, d); }
    void operator()(basic::Date d) const { statement.BindReal(index, d.Serial); }
    void operator()(const std::string& text) const { statement.BindText(index, text); }
};

}  // namespace

const char* ConversionTo(ColumnType type) {
    switch (type) {
        case ColumnType::Boolean:
            return "qm_bool";
        case ColumnType::Integer:
            return "qm_int";
        case ColumnType::Long:
            return "qm_long";
        case ColumnType::Double:
            return "qm_real";
        case ColumnType::Text:
            return "qm_text";
        case ColumnType::Any:
            break;
    }
    return "";
}

basic::Value NumberValue(double number) {
    constexpr double limit = std::numeric_limits<std::int32_t>::max();
    if (std::trunc(number) == number && std::abs(number) <= limit) return static_cast<std::int32_t>(number);
    return number;
}

Value ConvertTo(ColumnType type, const Value& value) {
    if (value.IsNull()) return type == ColumnType::Boolean ? Value(false) : value;  // a boolean is never Null
    try {
        return Convert(type, value);
    } catch (const basic::Error& failure) {
        if (failure.Number != basic::error::TypeMismatch) throw;
        const std::string kind = type == ColumnType::Boolean ? "a yes/no" : "a number";
        throw basic::Error(
            error::BadValue,
            "Data type mismatch: '" + basic::ToText(value) + "' is no value for " + kind + " field.",
            "ado.Statement");
    }
}

Value LiteralValue(const Literal& literal, const Parameter& parameter, std::string_view where) {
    if (parameter.measured && literal.isText) return MeasureOf(literal.text);
    Value value = literal.isText ? Value(literal.text) : NumberValue(literal.number);
    try {
        if (parameter.negate) value = NumberValue(-basic::ToDouble(ConvertTo(ColumnType::Double, value)));
        if (parameter.compared && value == Value(std::int32_t{-1})) return std::int32_t{1};
        if (parameter.pattern && literal.isText) CheckPattern(literal.text);
        return ConvertTo(parameter.as, value);
    } catch (basic::Error& failure) {
        if (failure.Number == error::BadValue && !where.empty())
            failure.Description += " (Table '" + std::string(where) + "'.)";
        throw;
    }
}

void CheckPattern(std::string_view pattern) {
    if (pattern.find('[') != std::string_view::npos)
        Refuse(error::Statement, "The pattern '" + std::string(pattern) +
                                     "' is not supported in statements: Like knows % and _ only");
}

void Bind(EngineStatement& statement, int index, const Value& value) {
    value.Visit(Binder{statement, index});
}

}  // namespace ado
