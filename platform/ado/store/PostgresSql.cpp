#include "platform/ado/store/PostgresSql.h"

#include <algorithm>

#include "platform/ado/dialect/Expression.h"
#include "platform/ado/store/Conversion.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

// In the order of the bytes, whatever the database's own is.
std::string Folded(const std::string& sql) {
    return "qm_fold(" + sql + ") COLLATE \"C\"";
}

}  // namespace

std::string PostgresSql::Parameter(std::size_t number) const {
    return "$" + std::to_string(number);
}

std::string PostgresSql::Truth(bool truth) const {
    return truth ? "TRUE" : "FALSE";
}

std::string PostgresSql::Condition(const Expression& value) const {
    if (value.isNull) return "NULL::boolean";
    return value.type == ColumnType::Boolean ? value.sql : "(" + value.sql + " <> 0)";
}

std::string PostgresSql::LeftSide(const Expression& e, bool texts) const {
    return texts ? Folded(e.sql) : e.sql;
}

std::string PostgresSql::RightSide(const Expression& e, bool texts) const {
    return texts ? "qm_fold(" + e.sql + ")" : e.sql;
}

std::string PostgresSql::BesideNumber(const Expression& boolean) const {
    return "(" + boolean.sql + ")::int";
}

void PostgresSql::FitToNumber(Expression& text, Expression& number, Plan& plan) const {
    if (number.type == ColumnType::Boolean) number = Of(BesideNumber(number), ColumnType::Any, number.depth);
    if (text.parameter)
        plan.parameters[*text.parameter].measured = true;
    else
        text.sql = "qm_number(" + text.sql + ")";
    text.type = ColumnType::Double;
    text.isText = false;
}

std::string PostgresSql::Like(const Expression& text, const Expression& pattern) const {
    const std::string read = pattern.parameter ? pattern.sql : "qm_pattern(" + pattern.sql + ")";
    return "(qm_fold(" + text.sql + ") LIKE qm_fold(" + read + ") ESCAPE '')";
}

// Whole columns by 64 bits, as the embedded store counts.
std::string PostgresSql::Number(const Expression& e) const {
    if (e.truth) return *e.truth ? "(-1)::int8" : "0::int8";
    if (e.isNull) return "NULL::int8";
    if (e.type == ColumnType::Boolean) return "(- " + BesideNumber(e) + ")::int8";
    const bool isWhole = e.type == ColumnType::Integer || e.type == ColumnType::Long;
    return isWhole ? "(" + e.sql + ")::int8" : e.sql;
}

std::string PostgresSql::NumberText(const Expression& e) const {
    return "qm_text(" + e.sql + ")";
}

std::string PostgresSql::Quotient(const Expression& a, const Expression& b) const {
    return "((" + a.sql + ")::float8 / (" + b.sql + ")::float8)";
}

std::string PostgresSql::Max(const Expression& e) const {
    if (e.type == ColumnType::Text) return "qm_max(" + e.sql + ")";
    if (e.type == ColumnType::Boolean) return "bool_or(" + e.sql + ")";
    return "max(" + (e.isNull ? Number(e) : e.sql) + ")";
}

std::string PostgresSql::Min(const Expression& e) const {
    if (e.type == ColumnType::Text) return "qm_min(" + e.sql + ")";
    if (e.type == ColumnType::Boolean) return "bool_and(" + e.sql + ")";
    return "min(" + (e.isNull ? Number(e) : e.sql) + ")";
}

std::string PostgresSql::Average(const Expression& e) const {
    return "avg((" + e.sql + ")::float8)";
}

std::string PostgresSql::Both(const std::string& a, const std::string& b) const {
    return "(" + a + "::int & " + b + "::int = 1)";
}

std::string PostgresSql::Remainder(const Expression& a, const Expression& b) const {
    return "qm_mod((" + a.sql + ")::float8, (" + b.sql + ")::float8)";
}

std::string PostgresSql::Sum(const Expression& e) const {
    return "sum((" + e.sql + ")::float8)";
}

std::string PostgresSql::Converted(const Expression& e, ColumnType type) const {
    return std::string(ConversionTo(type)) + "(" + e.sql + ")";
}

std::string PostgresSql::OrderKey(const Expression& key, bool descending) const {
    if (key.truth || key.isNull) return "";
    return GroupKey(key) + (descending ? " DESC NULLS LAST" : " NULLS FIRST");
}

std::string PostgresSql::GroupKey(const Expression& key) const {
    return key.type == ColumnType::Text ? Folded(key.sql) : key.sql;
}

// Texts of one group may differ in case: the last one stands for all, as in the embedded store.
std::string PostgresSql::OfGroup(const Expression& value, const std::vector<ColumnRef>& keys) const {
    std::string sql = value.sql;
    std::vector<std::string> met;
    for (const ColumnRef& key : keys) {
        const bool again = std::find(met.begin(), met.end(), key.Sql()) != met.end();
        if (again || key.column->type != ColumnType::Text) continue;
        met.push_back(key.Sql());
        const std::string rowid = QuotedName(key.table->alias) + ".rowid";
        sql = basic::Replace(sql, key.Sql(), "(array_agg(" + key.Sql() + " ORDER BY " + rowid + " DESC))[1]");
    }
    return sql;
}

// More than one row are an error of the server's own. A bare Null would be a text to it.
std::string PostgresSql::Single(const Expression& value, const std::string&) const {
    return value.isNull ? Number(value) : value.sql;
}

std::string PostgresSql::Total(const ColumnInfo& column) const {
    const std::string name = QuotedName(column.name);
    const std::string number = column.type == ColumnType::Text      ? "length(" + name + ")"
                               : column.type == ColumnType::Boolean ? name + "::int"
                                                                    : name;
    return "coalesce(sum((" + number + ")::float8), 0)";
}

}  // namespace ado
