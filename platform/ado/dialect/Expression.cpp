#include "platform/ado/dialect/Expression.h"

#include <algorithm>
#include <utility>

#include "platform/ado/dialect/Limits.h"
#include "platform/ado/dialect/Refusal.h"

namespace ado {
namespace {

// Texts that are no literal: comparing with them goes by texts.
bool HoldsTexts(const Expression& e) {
    return e.type == ColumnType::Text && !e.parameter;
}

void AlignWithBoolean(Expression& boolean, Expression& number, const Draft& draft) {
    boolean.sql = draft.words.BesideNumber(boolean);
    if (number.IsNumberLiteral())
        draft.plan.parameters[*number.parameter].compared = true;
    else
        number = Of("qm_truth(" + number.sql + ")", ColumnType::Any, number.depth + 1);
}

void AlignAsNumbers(Expression& text, Expression& number, const Draft& draft) {
    if (!number.meetsTexts) CheckNesting(++number.depth);
    draft.words.FitToNumber(text, number, draft.plan);
    number.meetsTexts = true;
}

void AlignTo(Expression& side, Expression& other, const Draft& draft) {
    const bool isNumber = other.type != ColumnType::Text && !other.isNull;
    if (side.type == ColumnType::Boolean) {
        if (isNumber && other.type != ColumnType::Boolean) AlignWithBoolean(side, other, draft);
    } else if (side.type == ColumnType::Text && isNumber) {
        if (HoldsTexts(side) && (other.IsNumberLiteral() || other.type == ColumnType::Boolean))
            other = AsText(std::move(other), draft);
        else
            AlignAsNumbers(side, other, draft);
    }
}

}  // namespace

Expression Of(std::string sql, ColumnType type, int depth) {
    CheckNesting(depth);
    Expression expression;
    expression.sql = std::move(sql);
    expression.type = type;
    expression.depth = depth;
    return expression;
}

int Around(const Expression& a, const Expression& b) {
    return std::max(a.depth, b.depth) + 1;
}

void Align(Expression& left, Expression& right, const Draft& draft) {
    AlignTo(left, right, draft);
    AlignTo(right, left, draft);
}

bool ComparesTexts(const Expression& left, const Expression& right) {
    return HoldsTexts(left) || HoldsTexts(right) || (left.isText && right.isText);
}

Expression AsNumber(Expression e, const std::string& sign, const Draft& draft) {
    if (e.type == ColumnType::Text)
        Refuse(error::BadValue, "A text stands beside '" + sign + "', where a number is expected");
    const bool brackets = e.type == ColumnType::Boolean;
    if (brackets) return Of(draft.words.Number(e), ColumnType::Any, e.truth ? 0 : e.depth + 1);
    e.sql = draft.words.Number(e);
    return e;
}

void RefuseDate(const Expression& e) {
    if (e.isDate) Refuse(error::BadValue, "A date stands where a text is expected");
}

Expression AsText(Expression e, const Draft& draft) {
    RefuseDate(e);
    if (e.type == ColumnType::Text || e.isNull) return e;
    if (e.truth) return Of(*e.truth ? "'True'" : "'False'", ColumnType::Text, 0);
    if (e.type == ColumnType::Boolean)
        return Of("(CASE WHEN " + e.sql + " THEN 'True' ELSE 'False' END)", ColumnType::Text, e.depth + 1);
    if (!e.IsNumberLiteral()) return Of(draft.words.NumberText(e), ColumnType::Text, e.depth + 1);
    draft.plan.parameters[*e.parameter].as = ColumnType::Text;
    e.type = ColumnType::Text;
    return e;
}

Expression Stored(const Expression& value, const ColumnInfo& column, const Draft& draft) {
    if (value.parameter) {
        draft.plan.parameters[*value.parameter].as = column.type;
        return value;
    }
    if (value.isNull)  // a boolean is never Null
        return Of(column.type == ColumnType::Boolean ? draft.words.Truth(false) : "NULL", column.type, 0);
    const bool sameColumn = value.column.column != nullptr && value.column.column->type == column.type;
    if (sameColumn || column.type == ColumnType::Any) return value;
    Expression fit = value;
    if (value.type == ColumnType::Boolean && column.type == ColumnType::Text)
        fit = AsText(value, draft);
    else if (value.type == ColumnType::Boolean && column.type != ColumnType::Boolean)
        fit = AsNumber(value, "=", draft);
    if (value.truth) return fit;
    return Of(draft.words.Converted(fit, column.type), column.type, fit.depth + 1);
}

}  // namespace ado
