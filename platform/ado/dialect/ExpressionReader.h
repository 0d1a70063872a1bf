#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ado/dialect/Expression.h"
#include "platform/ado/dialect/Tokens.h"

namespace ado {

// What a select in parentheses is for: one value, the values of a list, or whether it has rows.
struct SubselectUse {
    enum class Kind { Value, List, Existence };
    Kind kind = Kind::Value;
    std::function<void(Expression& value)> fit = {};  // of a list: makes its value meet what stands before In
};

// Translates a select that stands in parentheses; gives its SQL and the type of its one value.
using SubselectTranslator = std::function<Expression(const Scope& outer, const SubselectUse& use)>;

// Reads conditions and values: a recursive descent by precedence, Or binding least.
class ExpressionReader {
  public:
    ExpressionReader(TokenReader& tokens, const Scope& scope, const Draft& draft,
                     SubselectTranslator subselect)
        : tokens_(tokens), scope_(scope), draft_(draft), subselect_(std::move(subselect)) {}

    Expression Condition();  // Or, And, Not, comparisons; a value by itself, too
    Expression Truth();      // the same where it decides: a text is refused
    Expression Column();     // a field's name, with or without its table

    // Max, Sum and their like are refused unless allowed.
    void AllowAggregates(bool allowed) { aggregatesAllowed_ = allowed; }
    // Whether one was read; forgets it.
    bool TakeAggregate() { return std::exchange(sawAggregate_, false); }
    // The columns read so far that do not stand within Max or Sum; forgets them.
    std::vector<ColumnRef> TakeColumns() { return std::exchange(columns_, {}); }

  private:
    using Operand = Expression (ExpressionReader::*)();

    Expression And();
    Expression Not();
    Expression Comparison();
    Expression Compared(const Expression& left, const Expression& right, const char* sign) const;
    Expression Between(const Expression& left, bool negated);
    Expression Joined();
    Expression Sum();
    Expression Remainder();
    Expression Product();
    Expression Signed();
    Expression Primary();
    Expression Literal();
    Expression Name();
    Expression Call(const std::string& function);
    Expression Iif();
    Expression Exists();
    Expression HostFunction(const std::string& function);
    Expression Whole();  // a count or a place within a text
    Expression Subselect(const SubselectUse& use);
    Expression Aggregate(const std::string& function);
    Expression OfTexts(const char* function, const std::vector<Expression>& operands);
    Expression In(const Expression& left, bool negated);
    Expression InSelect(const Expression& left, bool negated);
    std::string Decisive(const Expression& e) const;
    Expression AlignedAnew(const Expression& left, Expression& item);
    Expression Like(const Expression& text, bool negated);
    Expression Chain(std::string_view word, Operand operand);
    Expression Arithmetic(std::string_view signs, Operand operand);
    Expression TextOperand();  // of a function that takes texts
    Expression ReadAsText(const Expression& value) const;

    TokenReader& tokens_;
    const Scope& scope_;
    const Draft draft_;
    SubselectTranslator subselect_;
    std::vector<ColumnRef> columns_;
    bool aggregatesAllowed_ = false;
    bool inAggregate_ = false;
    bool sawAggregate_ = false;
};

}  // namespace ado
