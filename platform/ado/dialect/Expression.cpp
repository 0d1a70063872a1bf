#include "platform/ado/dialect/Expression.h"

#include <utility>

#include "platform/ado/dialect/Refusal.h"

namespace ado {
namespace {

// Texts that are no literal: comparing with them goes by texts.
bool HoldsTexts(const Expression& e) {
    return e.type == ColumnType::Text && !e.parameter;
}

bool IsNumberLiteral(const Expression& e) {
    return e.parameter && !e.isText;
}

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

void AlignWithBoolean(Expression& other, Plan& plan) {
    if (IsNumberLiteral(other))
        plan.parameters[*other.parameter].compared = true;
    else if (other.type != ColumnType::Boolean && other.type != ColumnType::Text && !other.isNull)
        other = Of("qm_truth(" + other.sql + ")", ColumnType::Any);
}

void AlignWithText(const Expression& side, Expression& other, Plan& plan) {
    if (HoldsTexts(side) && (IsNumberLiteral(other) || other.type == ColumnType::Boolean)) {
        other = AsText(std::move(other), plan);
    } else if (other.type != ColumnType::Text && !other.meetsTexts && !other.isNull) {
        other.sql = "CAST(" + other.sql + " AS NUMERIC)";
        other.meetsTexts = true;
    }
}

void AlignTo(const Expression& side, Expression& other, Plan& plan) {
    if (side.type == ColumnType::Boolean)
        AlignWithBoolean(other, plan);
    else if (side.type == ColumnType::Text)
        AlignWithText(side, other, plan);
}

}  // namespace

Expression Of(std::string sql, ColumnType type) {
    Expression expression;
    expression.sql = std::move(sql);
    expression.type = type;
    return expression;
}

void Align(Expression& left, Expression& right, Plan& plan) {
    AlignTo(left, right, plan);
    AlignTo(right, left, plan);
}

bool ComparesTexts(const Expression& left, const Expression& right) {
    return HoldsTexts(left) || HoldsTexts(right) || (left.isText && right.isText);
}

std::string Collated(const Expression& e, bool texts) {
    return texts ? e.sql + " COLLATE QMTEXT" : e.sql;
}

Expression AsNumber(Expression e, const std::string& sign) {
    if (e.type == ColumnType::Text)
        Refuse(error::BadValue, "A text stands beside '" + sign + "', where a number is expected");
    if (e.truth) return Of(*e.truth ? "-1" : "0", ColumnType::Any);
    if (e.type == ColumnType::Boolean) return Of("(- " + e.sql + ")", ColumnType::Any);
    return e;
}

Expression AsText(Expression e, Plan& plan) {
    if (e.type == ColumnType::Text || e.isNull) return e;
    if (e.truth) return Of(*e.truth ? "'True'" : "'False'", ColumnType::Text);
    if (e.type == ColumnType::Boolean)
        return Of("(CASE WHEN " + e.sql + " THEN 'True' ELSE 'False' END)", ColumnType::Text);
    if (!IsNumberLiteral(e)) return Of("qm_text(" + e.sql + ")", ColumnType::Text);
    plan.parameters[*e.parameter].as = ColumnType::Text;
    e.type = ColumnType::Text;
    return e;
}

std::string Stored(const Expression& value, const ColumnInfo& column, Plan& plan) {
    if (value.parameter) {
        plan.parameters[*value.parameter].as = column.type;
        return value.sql;
    }
    if (value.isNull) return column.type == ColumnType::Boolean ? "0" : "NULL";  // a boolean is never Null
    const bool sameColumn = value.column.column != nullptr && value.column.column->type == column.type;
    if (sameColumn || column.type == ColumnType::Any) return value.sql;
    Expression fit = value;
    if (value.type == ColumnType::Boolean && column.type == ColumnType::Text)
        fit = AsText(value, plan);
    else if (value.type == ColumnType::Boolean && column.type != ColumnType::Boolean)
        fit = AsNumber(value, "=");
    if (value.truth) return fit.sql;
    return std::string(ConversionTo(column.type)) + "(" + fit.sql + ")";
}

}  // namespace ado
