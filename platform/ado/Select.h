#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ado/Expression.h"

namespace ado {

// Translates one select, from the word Select on, in the three places where one may stand.
class SelectReader {
  public:
    SelectReader(TokenReader& tokens, const Shape& shape, Catalog& catalog, Plan& plan)
        : tokens_(tokens), shape_(shape), catalog_(catalog), plan_(plan) {}

    // A statement of its own: fills the plan's head, where, tail and outputs.
    void Whole(const PlanOptions& options);
    // Behind Insert Into: `target` names the column that each value, by its name, goes to. Gives the select's
    // SQL.
    std::string Inserted(const std::function<const ColumnInfo&(const std::string& name)>& target);
    // In parentheses within an expression: one value; more than one row is an error when it runs.
    Expression OneValue(const Scope& outer);

  private:
    struct Item {
        Expression value;
        Output output;
    };

    void Read(const Scope* outer);
    void Tables();
    void Items();
    void AllColumns(const std::string& table);
    void OneItem();
    void WhereGroupOrder();
    void OrderKey();
    std::string RowidOrder() const;
    std::string From() const;
    ExpressionReader& Expressions() { return *expressions_; }

    TokenReader& tokens_;
    const Shape& shape_;
    Catalog& catalog_;
    Plan& plan_;
    Scope scope_;
    std::unique_ptr<ExpressionReader> expressions_;
    std::vector<Item> items_;
    bool distinct_ = false;
    bool aggregate_ = false;
    std::string where_, group_, order_;
    int unnamed_ = 0;
};

}  // namespace ado
