#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/ado/Dialect.h"
#include "platform/ado/Scope.h"
#include "platform/ado/Tokens.h"

namespace ado {

// A piece of a statement in the store's SQL, with what is known of its type.
struct Expression {
    std::string sql;
    ColumnType type = ColumnType::Any;
    std::optional<std::size_t> parameter;  // the literal's place in Plan::parameters
    bool isText = false;                   // of a literal: a text
    bool isNull = false;                   // the word NULL
    std::optional<bool> truth;             // the words True and False
    ColumnRef column;                      // of a plain column
};

// Translates a select that stands in parentheses; gives its SQL and the type of its one value.
using SubselectTranslator = std::function<Expression(const Scope& outer)>;

// Reads conditions and values: a recursive descent by precedence, Or binding least.
class ExpressionReader {
  public:
    ExpressionReader(TokenReader& tokens, const Shape& shape, const Scope& scope, Plan& plan,
                     SubselectTranslator subselect)
        : tokens_(tokens), shape_(shape), scope_(scope), plan_(plan), subselect_(std::move(subselect)) {}

    Expression Condition();  // Or, And, Not, comparisons
    Expression Column();     // a field's name, with or without its table
    bool SawAggregate() const { return sawAggregate_; }

    // The expression as it may be stored in a column: literals are converted when they are bound, all else by
    // a function of the store that refuses what the column's type refuses.
    std::string Stored(const Expression& value, const ColumnInfo& column);

  private:
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
    Expression In(const Expression& left, bool negated);
    Expression Arithmetic(const Expression& left, const std::string& sign, const Expression& right);
    Expression Compared(Expression left, const std::string& sign, Expression right);
    void MatchTypes(const Expression& side, Expression& other);

    TokenReader& tokens_;
    const Shape& shape_;
    const Scope& scope_;
    Plan& plan_;
    SubselectTranslator subselect_;
    bool sawAggregate_ = false;
};

}  // namespace ado
