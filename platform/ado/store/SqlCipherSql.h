#pragma once

#include "platform/ado/dialect/StoreSql.h"

namespace ado {

// The embedded store's words. It types values, not expressions, and knows no booleans: they are 1 and 0. What
// the dialect does beyond it are functions of ours, see SqlFunctions.h.
class SqlCipherSql final : public StoreSql {
  public:
    std::string Parameter(std::size_t number) const override;
    std::string Truth(bool truth) const override;
    std::string Condition(const Expression& value) const override;
    std::string LeftSide(const Expression& e, bool texts) const override;
    std::string RightSide(const Expression& e, bool texts) const override;
    std::string BesideNumber(const Expression& boolean) const override;
    void FitToNumber(Expression& text, Expression& number, Plan& plan) const override;
    std::string Like(const Expression& text, const Expression& pattern) const override;
    std::string Number(const Expression& e) const override;
    std::string NumberText(const Expression& e) const override;
    bool FunctionsReadNumbers() const override { return true; }
    std::string Quotient(const Expression& a, const Expression& b) const override;
    std::string Max(const Expression& e) const override;
    std::string Min(const Expression& e) const override;
    std::string Average(const Expression& e) const override;
    std::string Both(const std::string& a, const std::string& b) const override;
    std::string Remainder(const Expression& a, const Expression& b) const override;
    std::string Sum(const Expression& e) const override;
    std::string Converted(const Expression& e, ColumnType type) const override;
    std::string OrderKey(const Expression& key, bool descending) const override;
    std::string GroupKey(const Expression& key) const override;
    std::string OfGroup(const Expression& value, const std::vector<ColumnRef>& keys) const override;
    std::string Single(const Expression& value, const std::string& rowid) const override;
    std::string Returning() const override { return ""; }
    std::string Total(const ColumnInfo& column) const override;
};

}  // namespace ado
