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
    const Expression whole = Condition();
    return Of(Decisive(whole), ColumnType::Boolean, whole.depth);
}

Expression ExpressionReader::And() {
    return Chain("AND", &ExpressionReader::Not);
}

// The store would read a text as a number, and most as 0.
std::string ExpressionReader::Decisive(const Expression& e) const {
    if (e.type != ColumnType::Text) return draft_.words.Condition(e);
    tokens_.RefuseUnsupported();
    Refuse(error::BadValue, "A text stands by itself where a condition is expected");
}

// One level of parentheses for the whole chain: the store's parser takes only so many.
Expression ExpressionReader::Chain(std::string_view word, Operand operand) {
    Expression first = (this->*operand)();
    if (!tokens_.AtWord(word)) return first;
    std::string sql = "(" + Decisive(first);
    int depth = first.depth;
    while (tokens_.TakeWord(word)) {
        const Expression next = (this->*operand)();
        sql.append(" ").append(word).append(" ") += Decisive(next);
        depth = std::max(depth, next.depth);
    }
    return Of(sql + ")", ColumnType::Boolean, depth + 1);
}

Expression ExpressionReader::Not() {
    if (!tokens_.TakeWord("Not")) return Comparison();
    const Expression negated = Not();
    return Of("(NOT " + Decisive(negated) + ")", ColumnType::Boolean, negated.depth + 1);
}

Expression ExpressionReader::Comparison() {
    Expression left = Sum();
    if (tokens_.TakeWord("Is")) {
        const bool negated = tokens_.TakeWord("Not");
        tokens_.ExpectWord("Null");
        return Of("(" + left.sql + (negated ? " IS NOT NULL)" : " IS NULL)"), ColumnType::Boolean,
                  left.depth + 1);
    }
    const bool negated = (tokens_.AtWord("In", 1) || tokens_.AtWord("Like", 1)) && tokens_.TakeWord("Not");
    if (tokens_.TakeWord("In")) return In(left, negated);
    if (tokens_.TakeWord("Like")) return Like(left, negated);
    for (const char* sign : {"=", "<>", "<=", ">=", "<", ">"}) {
        if (!tokens_.TakeSymbol(sign)) continue;
        Expression right = Sum();
        Align(left, right, draft_);
        const bool texts = ComparesTexts(left, right);
        return Of("(" + draft_.words.LeftSide(left, texts) + " " + sign + " " +
                      draft_.words.RightSide(right, texts) + ")",
                  ColumnType::Boolean, Around(left, right));
    }
    return left;
}

// Each item meets the left side by itself: what one of them needs of it, the next one may not bear. Those
// that need the same stand in one list.
Expression ExpressionReader::In(const Expression& left, bool negated) {
    tokens_.ExpectSymbol("(");
    if (tokens_.AtWord("Select")) tokens_.Refuse("a list of values is expected (In takes no select)");
    std::vector<std::pair<std::string, std::string>> lists;  // the left side and its items
    int depth = 0;
    do {
        Expression item = Signed();
        const Expression own = AlignedAnew(left, item);
        const bool texts = ComparesTexts(own, item);
        const std::string side = draft_.words.LeftSide(own, texts);
        depth = std::max({depth, own.depth, item.depth + 1});
        auto list = std::find_if(lists.begin(), lists.end(), [&](const auto& l) { return l.first == side; });
        if (list == lists.end()) list = lists.insert(lists.end(), {side, {}});
        list->second.append(list->second.empty() ? "" : ", ") += draft_.words.RightSide(item, texts);
    } while (tokens_.TakeSymbol(","));
    tokens_.ExpectSymbol(")");
    std::string sql;
    for (const auto& [side, items] : lists)
        sql += (sql.empty() ? ""
                : negated   ? " AND "
                            : " OR ") +
               side + (negated ? " NOT IN (" : " IN (") + items + ")";
    if (sql.size() > MostOfIn) Refuse(error::Statement, "The statement is nested too deeply");
    return Of("(" + sql + ")", ColumnType::Boolean, depth + 1);
}

// The left side aligned with one item. A literal that is bound in another way for it becomes a parameter of
// its own.
Expression ExpressionReader::AlignedAnew(const Expression& left, Expression& item) {
    Expression own = left;
    if (!left.parameter) {
        Align(own, item, draft_);
        return own;
    }
    std::vector<Parameter>& parameters = draft_.plan.parameters;
    const Parameter before = parameters[*left.parameter];
    Align(own, item, draft_);
    const Parameter wanted = std::exchange(parameters[*left.parameter], before);
    if (wanted == before) return own;
    const auto found = std::find(parameters.begin(), parameters.end(), wanted);
    own.parameter = static_cast<std::size_t>(found - parameters.begin());
    if (found == parameters.end()) parameters.push_back(wanted);
    own.sql = draft_.words.Parameter(*own.parameter + 1);
    return own;
}

Expression ExpressionReader::Like(const Expression& text, bool negated) {
    const Expression pattern = TextOperand();
    if (pattern.parameter) draft_.plan.parameters[*pattern.parameter].pattern = true;
    const Expression read = ReadAsText(text);
    const std::string like = draft_.words.Like(read, pattern);
    return Of(negated ? "(NOT " + like + ")" : like, ColumnType::Boolean,
              Around(read, pattern) + (negated ? 1 : 0));
}

Expression ExpressionReader::TextOperand() {
    return ReadAsText(Sum());
}

// No store's function knows booleans as texts.
Expression ExpressionReader::ReadAsText(const Expression& value) const {
    if (value.type == ColumnType::Boolean) return AsText(value, draft_);
    if (draft_.words.FunctionsReadNumbers()) return value;
    Expression read = value;
    read.depth = 0;  // what a store needs beyond the others counts for none
    read = AsText(read, draft_);
    read.depth = value.depth;
    return read;
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
        const Expression first = AsNumber(std::move(left), sign, draft_);
        const Expression second = AsNumber((this->*operand)(), sign, draft_);
        open = sign != "/";
        const int around = Around(first, second);
        if (open) {
            const bool isDouble = first.type == ColumnType::Double || second.type == ColumnType::Double;
            left = Of(first.sql + " " + sign + " " + second.sql,
                      isDouble ? ColumnType::Double : ColumnType::Any, around - 1);
        } else {
            left = Of(draft_.words.Quotient(first, second), ColumnType::Double, around);
        }
    }
    return open ? Of("(" + left.sql + ")", left.type, left.depth + 1) : left;
}

Expression ExpressionReader::Signed() {
    if (tokens_.TakeSymbol("+")) return Signed();
    if (!tokens_.TakeSymbol("-")) return Primary();
    Expression value = AsNumber(Signed(), "-", draft_);
    if (!value.parameter) return Of("(- " + value.sql + ")", value.type, value.depth + 1);
    Parameter& parameter = draft_.plan.parameters[*value.parameter];
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
    std::vector<Parameter>& parameters = draft_.plan.parameters;
    literal.parameter = parameters.size();
    parameters.emplace_back().literal = token.literal;
    literal.sql = draft_.words.Parameter(parameters.size());
    return literal;
}

Expression ExpressionReader::Name() {
    if (tokens_.AtSymbol("(", 1)) return Call(tokens_.Take().text);
    for (const bool truth : {true, false})
        if (tokens_.TakeWord(truth ? "True" : "False")) {
            Expression word = Of(draft_.words.Truth(truth), ColumnType::Boolean, 0);
            word.truth = truth;
            return word;
        }
    if (tokens_.TakeWord("Null")) {
        Expression null = Of("NULL", ColumnType::Any, 0);
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
    Expression column = Of(found.Sql(), found.column->type, 0);
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
        const Expression of = Condition();
        result = Of("(" + of.sql + " IS NULL)", ColumnType::Boolean, of.depth + 1);
    } else if (EqualText(function, "CStr")) {
        result = OfTexts("qm_cstr", {TextOperand()});
    } else if (EqualText(function, "UCase")) {
        result = OfTexts("qm_ucase", {TextOperand()});
    } else if (EqualText(function, "Left")) {
        const Expression text = TextOperand();
        tokens_.ExpectSymbol(",");
        result = OfTexts("qm_left", {text, Sum()});
    } else {
        Refuse(error::Statement, "The function '" + function + "' is not supported in statements");
    }
    tokens_.ExpectSymbol(")");
    return result;
}

// The dialect's functions of texts are the store's, under names of ours.
Expression ExpressionReader::OfTexts(const char* function, const std::vector<Expression>& operands) {
    std::string list;
    int depth = 0;
    for (const Expression& operand : operands) {
        list.append(list.empty() ? "" : ", ") += operand.sql;
        depth = std::max(depth, operand.depth);
    }
    return Of(std::string(function) + "(" + list + ")", ColumnType::Text, depth + 1);
}

// Of one type whichever branch is taken: texts if one of them is a text, else numbers or booleans.
Expression ExpressionReader::Iif() {
    const Expression condition = Truth();
    tokens_.ExpectSymbol(",");
    Expression yes = Condition();
    tokens_.ExpectSymbol(",");
    Expression no = Condition();
    ColumnType type = no.isNull || yes.type == no.type ? yes.type : yes.isNull ? no.type : ColumnType::Any;
    if (yes.type == ColumnType::Text || no.type == ColumnType::Text) {
        type = ColumnType::Text;
        yes = AsText(std::move(yes), draft_);
        no = AsText(std::move(no), draft_);
    } else if (type != ColumnType::Boolean) {
        yes = AsNumber(std::move(yes), "Iif", draft_);
        no = AsNumber(std::move(no), "Iif", draft_);
        if (yes.type == ColumnType::Double || no.type == ColumnType::Double) type = ColumnType::Double;
    }
    return Of("(CASE WHEN " + condition.sql + " THEN " + yes.sql + " ELSE " + no.sql + " END)", type,
              std::max(condition.depth + 1, Around(yes, no)));
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
    if (EqualText(function, "Max")) return Of(draft_.words.Max(of), of.type, of.depth + 1);
    of = AsNumber(std::move(of), function, draft_);
    return Of(draft_.words.Sum(of), ColumnType::Double, of.depth + 1);
}

}  // namespace ado
