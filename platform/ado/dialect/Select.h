#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ado/dialect/ExpressionReader.h"

namespace ado {

// Translates one select, from the word Select on, in the three places where one may stand.
class SelectReader {
  public:
    SelectReader(TokenReader& tokens, Catalog& catalog, Plan& plan)
        : tokens_(tokens), catalog_(catalog), plan_(plan), words_(catalog.Sql()) {}

    // A statement of its own: fills the plan's head, where, tail and outputs.
    void Whole(const PlanOptions& options);
    // Behind Insert Into: `target` names the column that each value, by its name, goes to. Gives the select's
    // SQL.
    std::string Inserted(const std::function<const ColumnInfo&(const std::string& name)>& target);
    // In parentheses within an expression. Where it is for one value, more than one row is an error when it
    // runs.
    Expression InParentheses(const Scope& outer, const SubselectUse& use);

  private:
    struct Item {
        Expression value;
        Output output;
        bool ofGroup = true;  // not made by Max or Sum
    };

    void Read(const Scope* outer);
    void RefuseUnsupportedStart() const;
    void FindFrom();
    void Tables();
    void Items();
    void AllColumns();
    void TableColumns(const TableRef& table);
    void OneItem();
    void Where();
    void GroupBy();
    void OrderBy();
    Expression OrderKey();
    const Item* ItemCalledHere() const;
    void CheckGrouping() const;
    std::string Order() const;
    std::string ListOf(const Item& item) const;
    std::string From() const;

    TokenReader& tokens_;
    Catalog& catalog_;
    Plan& plan_;
    const StoreSql& words_;
    Scope scope_;
    std::unique_ptr<ExpressionReader> expressions_;
    std::vector<Item> items_;
    std::vector<ColumnRef> bare_;  // the columns of the list and of Order By that are not within Max or Sum
    std::vector<ColumnRef> keys_;  // of Group By
    std::string groupOrder_;
    bool distinct_ = false;
    bool aggregate_ = false;
    std::string where_, group_, order_;
    int whereDepth_ = 0;
    int unnamed_ = 0;
};

}  // namespace ado
