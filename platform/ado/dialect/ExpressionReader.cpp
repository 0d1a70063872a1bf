#include "platform/ado/dialect/ExpressionReader.h"

#include <algorithm>

#include "platform/ado/dialect/Refusal.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

constexpr std::size_t MostOfIn = 100'000;  // bytes: a left side is written once for each kind of item

}  // namespace

using basic::EqualText;

Expression ExpressionReader::Condition() {
    return Chain("OR", &ExpressionReader::And);
}

Expression ExpressionReader::Truth() {
    return Decisive(Condition());
}

Expression ExpressionReader::And() {
    return Chain("AND", &ExpressionReader::Not);
}

// The store would read a text as a number, and most as 0.
Expression ExpressionReader::Decisive(Expression e) const {
    if (e.type != ColumnType::Text) return e;
    tokens_.RefuseUnsupported();
    Refuse(error::BadValue, "A text stands by itself where a condition is expected");
}

// One level of parentheses for the whole chain: the store's parser takes only so many.
Expression ExpressionReader::Chain(std::string_view word, Operand operand) {
    Expression first = (this->*operand)();
    if (!tokens_.AtWord(word)) return first;
    std::string sql = "(" + Decisive(std::move(first)).sql;
    while (tokens_.TakeWord(word))
        sql.append(" ").append(word).append(" ") += Decisive((this->*operand)()).sql;
    return Of(sql + ")", ColumnType::Boolean);
}

Expression ExpressionReader::Not() {
    if (tokens_.TakeWord("Not")) return Of("(NOT " + Decisive(Not()).sql + ")", ColumnType::Boolean);
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
    if (tokens_.TakeWord("Like")) return Like(left, negated);
    for (const char* sign : {"=", "<>", "<=", ">=", "<", ">"}) {
        if (!tokens_.TakeSymbol(sign)) continue;
        Expression right = Sum();
        Align(left, right, plan_);
        return Of("(" + Collated(left, ComparesTexts(left, right)) + " " + sign + " " + right.sql + ")",
                  ColumnType::Boolean);
    }
    return left;
}

// Each item meets the left side by itself: what one of them needs of it, the next one may not bear. Those
// that need the same stand in one list.
Expression ExpressionReader::In(const Expression& left, bool negated) {
    tokens_.ExpectSymbol("(");
    if (tokens_.AtWord("Select")) tokens_.Refuse("a list of values is expected (In takes no select)");
    std::vector<std::pair<std::string, std::string>> lists;  // the left side and its items
    do {
        Expression item = Signed();
        const Expression own = AlignedAnew(left, item);
        const std::string side = Collated(own, ComparesTexts(own, item));
        auto list = std::find_if(lists.begin(), lists.end(), [&](const auto& l) { return l.first == side; });
        if (list == lists.end()) list = lists.insert(lists.end(), {side, {}});
        list->second.append(list->second.empty() ? "" : ", ") += item.sql;
    } while (tokens_.TakeSymbol(","));
    tokens_.ExpectSymbol(")");
    std::string sql;
    for (const auto& [side, items] : lists)
        sql += (sql.empty() ? ""
                : negated   ? " AND "
                            : " OR ") +
               side + (negated ? " NOT IN (" : " IN (") + items + ")";
    if (sql.size() > MostOfIn) Refuse(error::Statement, "The statement is nested too deeply");
    return Of("(" + sql + ")", ColumnType::Boolean);
}

// The left side aligned with one item. A literal that is bound in another way for it becomes a parameter of
// its own.
Expression ExpressionReader::AlignedAnew(const Expression& left, Expression& item) {
    Expression own = left;
    if (!left.parameter) {
        Align(own, item, plan_);
        return own;
    }
    const Parameter before = plan_.parameters[*left.parameter];
    Align(own, item, plan_);
    const Parameter wanted = std::exchange(plan_.parameters[*left.parameter], before);
    if (wanted == before) return own;
    const auto found = std::find(plan_.parameters.begin(), plan_.parameters.end(), wanted);
    own.parameter = static_cast<std::size_t>(found - plan_.parameters.begin());
    if (found == plan_.parameters.end()) plan_.parameters.push_back(wanted);
    own.sql = "?" + std::to_string(*own.parameter + 1);
    return own;
}

Expression ExpressionReader::Like(const Expression& text, bool negated) {
    const Expression pattern = TextOperand();
    if (pattern.parameter) plan_.parameters[*pattern.parameter].pattern = true;
    const std::string like = "qm_like(" +
                             (text.type == ColumnType::Boolean ? AsText(text, plan_).sql : text.sql) + ", " +
                             pattern.sql + ")";
    return Of(negated ? "(NOT " + like + ")" : like, ColumnType::Boolean);
}

// The functions read numbers as the classic texts by themselves, but know no booleans.
Expression ExpressionReader::TextOperand() {
    Expression value = Sum();
    return value.type == ColumnType::Boolean ? AsText(std::move(value), plan_) : value;
}

Expression ExpressionReader::Sum() {
    return Arithmetic("+-", &ExpressionReader::Product);
}

Expression ExpressionReader::Product() {
    return Arithmetic("*/", &ExpressionReader::Signed);
}

Expression ExpressionReader::Arithmetic(std::string_view signs, Operand operand) {
    Expression left = (this->*operand)();
    bool open = false;  // the chain still needs its parentheses
    while (tokens_.AtSymbol(signs.substr(0, 1)) || tokens_.AtSymbol(signs.substr(1, 1))) {
        const std::string sign = tokens_.Take().text;
        const Expression first = AsNumber(std::move(left), sign);
        const Expression second = AsNumber((this->*operand)(), sign);
        open = sign != "/";
        if (open) {
            const bool isDouble = first.type == ColumnType::Double || second.type == ColumnType::Double;
            left = Of(first.sql + " " + sign + " " + second.sql,
                      isDouble ? ColumnType::Double : ColumnType::Any);
        } else {
            left = Of("qm_div(" + first.sql + ", " + second.sql + ")", ColumnType::Double);
        }
    }
    if (open) left.sql = "(" + left.sql + ")";
    return left;
}

Expression ExpressionReader::Signed() {
    if (tokens_.TakeSymbol("+")) return Signed();
    if (!tokens_.TakeSymbol("-")) return Primary();
    Expression value = AsNumber(Signed(), "-");
    if (!value.parameter) return Of("(- " + value.sql + ")", value.type);
    Parameter& parameter = plan_.parameters[*value.parameter];
    parameter.negate = !parameter.negate;
    return value;
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
    const bool select = tokens_.AtWord("Select");
    if (select && inAggregate_) Refuse(error::Statement, "Max and Sum take no select in parentheses");
    Expression inner = select ? subselect_(scope_) : Condition();
    tokens_.ExpectSymbol(")");
    return inner;
}

Expression ExpressionReader::Literal() {
    const Token token = tokens_.Take();
    Expression literal;
    literal.isText = token.kind == TokenKind::Text;
    literal.type = literal.isText ? ColumnType::Text : ColumnType::Any;
    literal.parameter = plan_.parameters.size();
    plan_.parameters.emplace_back().literal = token.literal;
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
        Refuse(error::UnknownName,
               "No table of the statement has a field '" + (table.empty() ? "" : table + ".") + name + "'");
    columns_.push_back(found);
    Expression column = Of(found.Sql(), found.column->type);
    column.column = found;
    column.meetsTexts = true;
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
        result = Of("qm_cstr(" + TextOperand().sql + ")", ColumnType::Text);
    } else if (EqualText(function, "UCase")) {
        result = Of("qm_ucase(" + TextOperand().sql + ")", ColumnType::Text);
    } else if (EqualText(function, "Left")) {
        const std::string text = TextOperand().sql;
        tokens_.ExpectSymbol(",");
        result = Of("qm_left(" + text + ", " + Sum().sql + ")", ColumnType::Text);
    } else {
        Refuse(error::Statement, "The function '" + function + "' is not supported in statements");
    }
    tokens_.ExpectSymbol(")");
    return result;
}

// Of one type whichever branch is taken: texts if one of them is a text, else numbers or booleans.
Expression ExpressionReader::Iif() {
    const std::string condition = Truth().sql;
    tokens_.ExpectSymbol(",");
    Expression yes = Condition();
    tokens_.ExpectSymbol(",");
    Expression no = Condition();
    ColumnType type = no.isNull || yes.type == no.type ? yes.type : yes.isNull ? no.type : ColumnType::Any;
    if (yes.type == ColumnType::Text || no.type == ColumnType::Text) {
        type = ColumnType::Text;
        yes = AsText(std::move(yes), plan_);
        no = AsText(std::move(no), plan_);
    } else if (type != ColumnType::Boolean) {
        yes = AsNumber(std::move(yes), "Iif");
        no = AsNumber(std::move(no), "Iif");
        if (yes.type == ColumnType::Double || no.type == ColumnType::Double) type = ColumnType::Double;
    }
    return Of("(CASE WHEN " + condition + " THEN " + yes.sql + " ELSE " + no.sql + " END)", type);
}

Expression ExpressionReader::Aggregate(const std::string& function) {
    if (!aggregatesAllowed_ || inAggregate_)
        Refuse(error::Statement, function + " stands only in the list of a select, and not within another");
    sawAggregate_ = inAggregate_ = true;
    const std::vector<ColumnRef> before = TakeColumns();
    Expression of = Sum();
    inAggregate_ = false;
    // The store would take it for an aggregate of the outer select.
    if (!columns_.empty() && std::none_of(columns_.begin(), columns_.end(),
                                          [&](const ColumnRef& column) { return scope_.Holds(column); }))
        Refuse(error::Statement, function + " takes a field of its own select's tables");
    columns_ = before;
    if (EqualText(function, "Max"))
        return Of("max(" + Collated(of, of.type == ColumnType::Text) + ")", of.type);
    of = AsNumber(std::move(of), function);
    return Of("sum(" + of.sql + ")", ColumnType::Double);
}

}  // namespace ado
