#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/ado/dialect/Catalog.h"

namespace ado {

struct ColumnRef;
struct Expression;
struct Plan;

// The words of a store for what the translator writes: the readers know the grammar and the types, this knows
// how the store says it. Each engine hands out its own. What gives texts here gives SQL without brackets
// around it unless its form brings them along.
class StoreSql {
  public:
    virtual ~StoreSql() = default;

    virtual std::string Parameter(std::size_t number) const = 0;  // from 1
    virtual std::string Truth(bool truth) const = 0;              // the words True and False
    // A value that decides: a boolean, or a number, of which any but 0 is True.
    virtual std::string Condition(const Expression& value) const = 0;

    // The two sides of a comparison; texts go without regard to case.
    virtual std::string LeftSide(const Expression& e, bool texts) const = 0;
    virtual std::string RightSide(const Expression& e, bool texts) const = 0;
    virtual std::string BesideNumber(const Expression& boolean) const = 0;  // as 1 or 0
    // A text that reads as a number is that number; any other stands above all numbers.
    virtual void FitToNumber(Expression& text, Expression& number, Plan& plan) const = 0;
    virtual std::string Like(const Expression& text, const Expression& pattern) const = 0;

    virtual std::string Number(const Expression& e) const = 0;      // an operand; a boolean's True is -1
    virtual std::string NumberText(const Expression& e) const = 0;  // its classic text
    // Functions that take texts make them of numbers by themselves.
    virtual bool FunctionsReadNumbers() const = 0;
    virtual std::string Quotient(const Expression& a, const Expression& b) const = 0;  // always by doubles
    virtual std::string Max(const Expression& e) const = 0;
    virtual std::string Min(const Expression& e) const = 0;
    virtual std::string Average(const Expression& e) const = 0;  // by doubles
    // Both conditions; Null where one of them is, whatever the other.
    virtual std::string Both(const std::string& a, const std::string& b) const = 0;
    virtual std::string Remainder(const Expression& a, const Expression& b) const = 0;  // of whole numbers
    virtual std::string Sum(const Expression& e) const = 0;
    // As a column of the type stores it; raises what the type refuses. Null stays Null, but for a boolean.
    virtual std::string Converted(const Expression& e, ColumnType type) const = 0;

    // A key of Order By with its direction, Nulls being the least; "" for one that is the same in all rows.
    virtual std::string OrderKey(const Expression& key, bool descending) const = 0;
    virtual std::string GroupKey(const Expression& key) const = 0;
    // A value of the list that is of the group and not of Max or Sum.
    virtual std::string OfGroup(const Expression& value, const std::vector<ColumnRef>& keys) const = 0;
    virtual std::string Single(const Expression& value, const std::string& rowid) const = 0;  // of one row
    virtual std::string Returning() const = 0;  // behind an insert: lets Engine::LastRow know
    // The sum of a column's numbers, of a text column that of its lengths; 0 of none.
    virtual std::string Total(const ColumnInfo& column) const = 0;
};

}  // namespace ado
