#include "platform/ado/store/Conversion.h"

#include <cmath>
#include <limits>
#include <string>

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
