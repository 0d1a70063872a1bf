#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ado/dialect/Expression.h"
#include "platform/ado/dialect/Tokens.h"

namespace ado {

// Translates a select that stands in parentheses; gives its SQL and the type of its one value.
using SubselectTranslator = std::function<Expression(const Scope& outer)>;

// Reads conditions and values: a recursive descent by precedence, Or binding least.
class ExpressionReader {
  public:
    ExpressionReader(TokenReader& tokens, const Scope& scope, const Draft& draft,
                     SubselectTranslator subselect)
        : tokens_(tokens), scope_(scope), draft_(draft), subselect_(std::move(subselect)) {}

    Expression Condition();  // Or, And, Not, comparisons; a value by itself, too
    Expression Truth();      // the same where it decides: a text is refused
    Expression Column();     // a field's name, with or without its table

    // Max and Sum are refused unless allowed.
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
    Expression Sum();
    Expression Product();
    Expression Signed();
    Expression Primary();
    Expression Literal();
    Expression Name();
    Expression Call(const std::string& function);
    Expression Iif();
    Expression Aggregate(const std::string& function);
    Expression OfTexts(const char* function, const std::vector<Expression>& operands);
    Expression In(const Expression& left, bool negated);
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
