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
    Expression left = Joined();
    if (tokens_.TakeWord("Is")) {
        const bool negated = tokens_.TakeWord("Not");
        tokens_.ExpectWord("Null");
        return Of("(" + left.sql + (negated ? " IS NOT NULL)" : " IS NULL)"), ColumnType::Boolean,
                  left.depth + 1);
    }
    const bool between =
        tokens_.OfHostCondition() && tokens_.AtWord("Between", tokens_.AtWord("Not") ? 1 : 0);
    const bool negated =
        (between || tokens_.AtWord("In", 1) || tokens_.AtWord("Like", 1)) && tokens_.TakeWord("Not");
    if (between) return Between(left, negated);
    if (tokens_.TakeWord("In")) return In(left, negated);
    if (tokens_.TakeWord("Like")) return Like(left, negated);
    for (const char* sign : {"=", "<>", "<=", ">=", "<", ">"}) {
        if (!tokens_.TakeSymbol(sign)) continue;
        Expression right = Joined();
        Align(left, right, draft_);
        return Compared(left, right, sign);
    }
    return left;
}

// Of two sides that fit each other.
Expression ExpressionReader::Compared(const Expression& left, const Expression& right,
                                      const char* sign) const {
    const bool texts = ComparesTexts(left, right);
    return Of("(" + draft_.words.LeftSide(left, texts) + " " + sign + " " +
                  draft_.words.RightSide(right, texts) + ")",
              ColumnType::Boolean, Around(left, right));
}

// Null where any of the three is.
Expression ExpressionReader::Between(const Expression& left, bool negated) {
    tokens_.ExpectWord("Between");
    Expression low = Joined();
    Expression own = AlignedAnew(left, low);
    const Expression from = Compared(own, low, ">=");
    tokens_.ExpectWord("And");
    Expression high = Joined();
    own = AlignedAnew(left, high);
    const Expression to = Compared(own, high, "<=");
    const std::string both = draft_.words.Both(from.sql, to.sql);
    if (both.size() > MostOfIn) Refuse(error::Statement, "The statement is nested too deeply");
    return Of(negated ? "(NOT " + both + ")" : both, ColumnType::Boolean,
              Around(from, to) + (negated ? 1 : 0));
}

// Each item meets the left side by itself: what one of them needs of it, the next one may not bear. Those
// that need the same stand in one list.
Expression ExpressionReader::In(const Expression& left, bool negated) {
    tokens_.ExpectSymbol("(");
    if (tokens_.AtWord("Select")) {
        if (!tokens_.OfHostCondition()) tokens_.Refuse("a list of values is expected (In takes no select)");
        return InSelect(left, negated);
    }
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

Expression ExpressionReader::InSelect(const Expression& left, bool negated) {
    Expression own;
    std::string side;
    const auto fit = [&](Expression& value) {
        own = AlignedAnew(left, value);
        const bool texts = ComparesTexts(own, value);
        side = draft_.words.LeftSide(own, texts);
        // A bare Null has no kind by itself.
        value.sql =
            value.isNull ? "nullif(" + side + ", " + side + ")" : draft_.words.RightSide(value, texts);
    };
    const Expression list = Subselect({SubselectUse::Kind::List, fit});
    tokens_.ExpectSymbol(")");
    const std::string sql = "(" + side + (negated ? " NOT IN " : " IN ") + list.sql + ")";
    if (sql.size() > MostOfIn) Refuse(error::Statement, "The statement is nested too deeply");
    return Of(sql, ColumnType::Boolean, Around(own, list));
}

Expression ExpressionReader::Subselect(const SubselectUse& use) {
    if (inAggregate_) Refuse(error::Statement, "Max and Sum take no select in parentheses");
    return subselect_(scope_, use);
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
    const Expression read = ReadAsText(text);
    if (tokens_.OfHostCondition()) {
        const Expression sets = OfTexts("qm_like_sets", {read, pattern});
        return Of(negated ? "(NOT " + sets.sql + ")" : sets.sql, ColumnType::Boolean,
                  sets.depth + (negated ? 1 : 0));
    }
    if (pattern.parameter) draft_.plan.parameters[*pattern.parameter].pattern = true;
    const std::string like = draft_.words.Like(read, pattern);
    return Of(negated ? "(NOT " + like + ")" : like, ColumnType::Boolean,
              Around(read, pattern) + (negated ? 1 : 0));
}

Expression ExpressionReader::TextOperand() {
    return ReadAsText(Joined());
}

// No store's function knows booleans as texts.
Expression ExpressionReader::ReadAsText(const Expression& value) const {
    RefuseDate(value);
    if (value.type == ColumnType::Boolean) return AsText(value, draft_);
    if (draft_.words.FunctionsReadNumbers()) return value;
    Expression read = value;
    read.depth = 0;  // what a store needs beyond the others counts for none
    read = AsText(read, draft_);
    read.depth = value.depth;
    return read;
}

// Null reads as nothing beside a text; of two it stays Null.
Expression ExpressionReader::Joined() {
    Expression left = Sum();
    while (tokens_.TakeSymbol("&")) {
        const Expression first = ReadAsText(left);
        left = OfTexts("qm_join", {first, ReadAsText(Sum())});
    }
    return left;
}

Expression ExpressionReader::Sum() {
    return Arithmetic("+-", &ExpressionReader::Remainder);
}

Expression ExpressionReader::Remainder() {
    Expression left = Product();
    while (tokens_.OfHostCondition() && tokens_.TakeWord("Mod")) {
        const Expression first = AsNumber(std::move(left), "Mod", draft_);
        const Expression second = AsNumber(Product(), "Mod", draft_);
        left = Of(draft_.words.Remainder(first, second), ColumnType::Long, Around(first, second));
    }
    return left;
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
        case TokenKind::Date:
            return Literal();
        case TokenKind::Bracketed:
            return Column();
        case TokenKind::Name:
            return Name();
        default:
            break;
    }
    if (!tokens_.TakeSymbol("(")) tokens_.Refuse("a value is expected");
    Expression inner = tokens_.AtWord("Select") ? Subselect({}) : Condition();
    tokens_.ExpectSymbol(")");
    return inner;
}

Expression ExpressionReader::Literal() {
    const Token token = tokens_.Take();
    Expression literal;
    literal.isText = token.kind == TokenKind::Text;
    literal.isDate = token.kind == TokenKind::Date;
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
        result = HostFunction(function);
    }
    tokens_.ExpectSymbol(")");
    return result;
}

Expression ExpressionReader::HostFunction(const std::string& function) {
    const auto is = [&](const char* name) { return tokens_.OfHostCondition() && EqualText(function, name); };
    if (is("Exists")) return Exists();
    if (is("Min") || is("Count") || is("Avg")) return Aggregate(function);
    if (is("Trim")) return OfTexts("qm_trim", {TextOperand()});
    if (is("Len")) {
        Expression length = OfTexts("qm_len", {TextOperand()});
        length.type = ColumnType::Long;
        return length;
    }
    if (is("Right") || is("Mid")) {
        std::vector<Expression> operands{TextOperand()};
        tokens_.ExpectSymbol(",");
        operands.push_back(Whole());
        if (is("Right")) return OfTexts("qm_right", operands);
        if (tokens_.TakeSymbol(",")) operands.push_back(Whole());
        return OfTexts("qm_mid", operands);
    }
    if (!is("InStr"))
        Refuse(error::Statement, "The function '" + function + "' is not supported in statements");
    const std::size_t begin = tokens_.Position(), parameters = draft_.plan.parameters.size();
    Expression first = TextOperand(), start = Of("1", ColumnType::Long, 0);
    tokens_.ExpectSymbol(",");
    Expression second = TextOperand();
    if (tokens_.AtSymbol(",")) {  // the first of three is where to start
        draft_.plan.parameters.resize(parameters);
        tokens_.MoveTo(begin);
        start = Whole();
        tokens_.ExpectSymbol(",");
        first = TextOperand();
        tokens_.ExpectSymbol(",");
        second = TextOperand();
    }
    Expression place = OfTexts("qm_instr", {start, first, second});
    place.type = ColumnType::Long;
    return place;
}

Expression ExpressionReader::Whole() {
    Expression number = Sum();
    if (number.type != ColumnType::Text) number = AsNumber(std::move(number), "a text's part", draft_);
    return Of(draft_.words.Converted(number, ColumnType::Long), ColumnType::Long, number.depth + 1);
}

Expression ExpressionReader::Exists() {
    if (!tokens_.AtWord("Select")) tokens_.Refuse("'Select' is expected");
    const Expression rows = Subselect({SubselectUse::Kind::Existence, {}});
    return Of("(EXISTS " + rows.sql + ")", ColumnType::Boolean, rows.depth + 1);
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
    if (EqualText(function, "Count") && tokens_.TakeSymbol("*")) {
        inAggregate_ = false;
        columns_ = before;
        return Of("count(*)", ColumnType::Long, 1);
    }
    Expression of = Sum();
    inAggregate_ = false;
    // The store would take it for an aggregate of the outer select.
    if (!columns_.empty() && std::none_of(columns_.begin(), columns_.end(),
                                          [&](const ColumnRef& column) { return scope_.Holds(column); }))
        Refuse(error::Statement, function + " takes a field of its own select's tables");
    columns_ = before;
    if (EqualText(function, "Count")) return Of("count(" + of.sql + ")", ColumnType::Long, of.depth + 1);
    if (EqualText(function, "Min")) return Of(draft_.words.Min(of), of.type, of.depth + 1);
    if (EqualText(function, "Max")) return Of(draft_.words.Max(of), of.type, of.depth + 1);
    of = AsNumber(std::move(of), function, draft_);
    return Of(EqualText(function, "Avg") ? draft_.words.Average(of) : draft_.words.Sum(of),
              ColumnType::Double, of.depth + 1);
}

}  // namespace ado
