#include "platform/ado/Expression.h"

#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

using basic::EqualText;

Expression Of(std::string sql, ColumnType type) {
    Expression expression;
    expression.sql = std::move(sql);
    expression.type = type;
    return expression;
}

bool IsNumber(ColumnType type) {
    return type == ColumnType::Integer || type == ColumnType::Long || type == ColumnType::Double;
}

// Whether the expression holds texts that are no literal, so that comparing with it goes without regard to
// case.
bool HoldsTexts(const Expression& e) {
    return e.type == ColumnType::Text && !e.parameter;
}

bool ComparesTexts(const Expression& left, const Expression& right) {
    return HoldsTexts(left) || HoldsTexts(right) || (left.isText && right.isText);
}

std::string Collated(const Expression& e, bool texts) {
    return texts ? e.sql + " COLLATE QMTEXT" : e.sql;
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

// True and False as another type has them: the word in a text, -1 and 0 in a number.
std::string TruthAs(bool truth, ColumnType type) {
    if (type == ColumnType::Text) return truth ? "'True'" : "'False'";
    if (IsNumber(type)) return truth ? "-1" : "0";
    return truth ? "1" : "0";
}

}  // namespace

Expression ExpressionReader::Condition() {
    Expression left = And();
    while (tokens_.TakeWord("Or")) left = Of("(" + left.sql + " OR " + And().sql + ")", ColumnType::Boolean);
    return left;
}

Expression ExpressionReader::And() {
    Expression left = Not();
    while (tokens_.TakeWord("And"))
        left = Of("(" + left.sql + " AND " + Not().sql + ")", ColumnType::Boolean);
    return left;
}

Expression ExpressionReader::Not() {
    if (tokens_.TakeWord("Not")) return Of("(NOT " + Not().sql + ")", ColumnType::Boolean);
    return Comparison();
}

Expression ExpressionReader::Comparison() {
    Expression left = Sum();
    if (tokens_.TakeWord("Is")) {
        const bool negated = tokens_.TakeWord("Not");
        tokens_.ExpectWord("Null");
        return Of("(" + left.sql + (negated ? " IS NOT NULL)" : " IS NULL)"), ColumnType::Boolean);
    }
    const bool negated = (tokens_.AtWord("In", 1) || tokens_.AtWord("Like", 1)) && tokens_.TakeWord("Not");
    if (tokens_.TakeWord("In")) return In(left, negated);
    if (tokens_.TakeWord("Like")) {
        const Expression pattern = Sum();
        return Of(std::string(negated ? "(NOT " : "(") + "qm_like(" + left.sql + ", " + pattern.sql + "))",
                  ColumnType::Boolean);
    }
    for (const char* sign : {"=", "<>", "<=", ">=", "<", ">"})
        if (tokens_.TakeSymbol(sign)) return Compared(left, sign, Sum());
    return left;
}

// What a literal must become to be compared with the other side.
void ExpressionReader::MatchTypes(const Expression& side, Expression& other) {
    if (other.truth && side.type != ColumnType::Boolean) other.sql = TruthAs(*other.truth, side.type);
    if (!other.parameter || other.isText) return;
    Parameter& parameter = plan_.parameters[*other.parameter];
    if (side.type == ColumnType::Boolean) parameter.compared = true;
    if (HoldsTexts(side)) parameter.as = ColumnType::Text;
}

Expression ExpressionReader::Compared(Expression left, const std::string& sign, Expression right) {
    MatchTypes(left, right);
    MatchTypes(right, left);
    return Of("(" + Collated(left, ComparesTexts(left, right)) + " " + sign + " " + right.sql + ")",
              ColumnType::Boolean);
}

Expression ExpressionReader::In(const Expression& left, bool negated) {
    tokens_.ExpectSymbol("(");
    if (tokens_.AtWord("Select")) tokens_.Refuse("a list of values is expected (In takes no select)");
    std::string items;
    bool texts = HoldsTexts(left);
    do {
        Expression item = Signed();
        MatchTypes(left, item);
        texts = texts || ComparesTexts(left, item);
        items += (items.empty() ? "" : ", ") + item.sql;
    } while (tokens_.TakeSymbol(","));
    tokens_.ExpectSymbol(")");
    return Of("(" + Collated(left, texts) + (negated ? " NOT IN (" : " IN (") + items + "))",
              ColumnType::Boolean);
}

Expression ExpressionReader::Sum() {
    Expression left = Product();
    while (tokens_.AtSymbol("+") || tokens_.AtSymbol("-")) {
        const std::string sign = tokens_.Take().text;
        left = Arithmetic(left, sign, Product());
    }
    return left;
}

Expression ExpressionReader::Product() {
    Expression left = Signed();
    while (tokens_.AtSymbol("*") || tokens_.AtSymbol("/")) {
        const std::string sign = tokens_.Take().text;
        left = Arithmetic(left, sign, Signed());
    }
    return left;
}

Expression ExpressionReader::Arithmetic(const Expression& left, const std::string& sign,
                                        const Expression& right) {
    for (const Expression* side : {&left, &right})
        if (side->type == ColumnType::Text)
            throw basic::Error(error::BadValue,
                               "A text stands beside '" + sign + "', where a number is expected", "ado");
    if (sign == "/") return Of("qm_div(" + left.sql + ", " + right.sql + ")", ColumnType::Double);
    const bool isDouble = left.type == ColumnType::Double || right.type == ColumnType::Double;
    return Of("(" + left.sql + " " + sign + " " + right.sql + ")",
              isDouble ? ColumnType::Double : ColumnType::Any);
}

Expression ExpressionReader::Signed() {
    if (tokens_.TakeSymbol("+")) return Signed();
    if (!tokens_.TakeSymbol("-")) return Primary();
    Expression value = Signed();
    if (value.parameter && !value.isText) {
        Parameter& parameter = plan_.parameters[*value.parameter];
        parameter.negate = !parameter.negate;
        return value;
    }
    if (value.type == ColumnType::Text)
        throw basic::Error(error::BadValue, "A text stands behind '-', where a number is expected", "ado");
    return Of("(- " + value.sql + ")", value.type);
}

Expression ExpressionReader::Primary() {
    switch (tokens_.Peek().kind) {
        case TokenKind::Number:
        case TokenKind::Text:
            return Literal();
        case TokenKind::Bracketed:
            return Column();
        case TokenKind::Name:
            return Name();
        default:
            break;
    }
    if (!tokens_.TakeSymbol("(")) tokens_.Refuse("a value is expected");
    Expression inner;
    if (tokens_.AtWord("Select")) {
        inner = subselect_(scope_);
        inner.sql = "(" + inner.sql + ")";
    } else {
        inner = Condition();
        if (!inner.parameter && !inner.sql.starts_with("(")) inner.sql = "(" + inner.sql + ")";
    }
    tokens_.ExpectSymbol(")");
    return inner;
}

Expression ExpressionReader::Literal() {
    const Token token = tokens_.Take();
    Expression literal;
    literal.isText = token.kind == TokenKind::Text;
    literal.type = literal.isText ? ColumnType::Text : ColumnType::Any;
    literal.parameter = plan_.parameters.size();
    plan_.parameters.push_back(
        {.literal = token.literal, .negate = false, .as = ColumnType::Any, .compared = false});
    literal.sql = "?" + std::to_string(plan_.parameters.size());
    return literal;
}

Expression ExpressionReader::Name() {
    if (tokens_.AtSymbol("(", 1)) return Call(tokens_.Take().text);
    for (const bool truth : {true, false})
        if (tokens_.TakeWord(truth ? "True" : "False")) {
            Expression word = Of(truth ? "1" : "0", ColumnType::Boolean);
            word.truth = truth;
            return word;
        }
    if (tokens_.TakeWord("Null")) {
        Expression null = Of("NULL", ColumnType::Any);
        null.isNull = true;
        return null;
    }
    return Column();
}

Expression ExpressionReader::Column() {
    std::string table, name = tokens_.ExpectName("a field");
    if (tokens_.TakeSymbol(".")) {
        table = name;
        name = tokens_.ExpectName("a field");
    }
    const ColumnRef found = scope_.Find(table, name);
    if (found.column == nullptr)
        throw basic::Error(
            error::UnknownName,
            "No table of the statement has a field '" + (table.empty() ? "" : table + ".") + name + "'",
            "ado");
    Expression column = Of(found.Sql(), found.column->type);
    column.column = found;
    return column;
}

Expression ExpressionReader::Call(const std::string& function) {
    tokens_.ExpectSymbol("(");
    Expression result;
    if (EqualText(function, "Iif")) {
        result = Iif();
    } else if (EqualText(function, "Max") || EqualText(function, "Sum")) {
        result = Aggregate(function);
    } else if (EqualText(function, "IsNull")) {
        result = Of("(" + Condition().sql + " IS NULL)", ColumnType::Boolean);
    } else if (EqualText(function, "CStr")) {
        result = Of("qm_cstr(" + Sum().sql + ")", ColumnType::Text);
    } else if (EqualText(function, "UCase")) {
        result = Of("qm_ucase(" + Sum().sql + ")", ColumnType::Text);
    } else if (EqualText(function, "Left")) {
        const Expression text = Sum();
        tokens_.ExpectSymbol(",");
        result = Of("qm_left(" + text.sql + ", " + Sum().sql + ")", ColumnType::Text);
    } else {
        throw basic::Error(error::Statement, "The function '" + function + "' is not supported in statements",
                           "ado");
    }
    tokens_.ExpectSymbol(")");
    return result;
}

Expression ExpressionReader::Iif() {
    const Expression condition = Condition();
    tokens_.ExpectSymbol(",");
    const Expression yes = Condition();
    tokens_.ExpectSymbol(",");
    const Expression no = Condition();
    ColumnType type = yes.type == no.type ? yes.type : ColumnType::Any;
    if (type == ColumnType::Any && (yes.type == ColumnType::Double || no.type == ColumnType::Double))
        type = ColumnType::Double;
    if (yes.type == ColumnType::Text || no.type == ColumnType::Text) type = ColumnType::Text;
    return Of("(CASE WHEN " + condition.sql + " THEN " + yes.sql + " ELSE " + no.sql + " END)", type);
}

Expression ExpressionReader::Aggregate(const std::string& function) {
    sawAggregate_ = true;
    const Expression of = Sum();
    if (EqualText(function, "Max"))
        return Of("max(" + Collated(of, of.type == ColumnType::Text) + ")", of.type);
    if (of.type == ColumnType::Text)
        throw basic::Error(error::BadValue, "Sum takes numbers, not texts", "ado");
    return Of("sum(" + of.sql + ")", ColumnType::Double);
}

std::string ExpressionReader::Stored(const Expression& value, const ColumnInfo& column) {
    if (value.parameter) {
        plan_.parameters[*value.parameter].as = column.type;
        return value.sql;
    }
    if (value.truth) return TruthAs(*value.truth, column.type);
    if (value.isNull) return column.type == ColumnType::Boolean ? "0" : "NULL";  // a boolean is never Null
    const bool sameColumn = value.column.column != nullptr && value.column.column->type == column.type;
    if (sameColumn || column.type == ColumnType::Any) return value.sql;
    return std::string(ConversionTo(column.type)) + "(" + value.sql + ")";
}

}  // namespace ado
