#include "platform/ado/store/SqlCipherSql.h"

#include "platform/ado/dialect/Expression.h"
#include "platform/ado/store/Conversion.h"

namespace ado {

std::string SqlCipherSql::Parameter(std::size_t number) const {
    return "?" + std::to_string(number);
}

std::string SqlCipherSql::Truth(bool truth) const {
    return truth ? "1" : "0";
}

std::string SqlCipherSql::Condition(const Expression& value) const {
    return value.sql;
}

std::string SqlCipherSql::LeftSide(const Expression& e, bool texts) const {
    return texts ? e.sql + " COLLATE QMTEXT" : e.sql;
}

std::string SqlCipherSql::RightSide(const Expression& e, bool) const {
    return e.sql;
}

std::string SqlCipherSql::BesideNumber(const Expression& boolean) const {
    return boolean.sql;
}

// A column's own affinity reads the text; anything else has to be given one.
void SqlCipherSql::FitToNumber(Expression&, Expression& number, Plan&) const {
    if (!number.meetsTexts) number.sql = "CAST(" + number.sql + " AS NUMERIC)";
}

std::string SqlCipherSql::Like(const Expression& text, const Expression& pattern) const {
    return "qm_like(" + text.sql + ", " + pattern.sql + ")";
}

std::string SqlCipherSql::Number(const Expression& e) const {
    if (e.truth) return *e.truth ? "-1" : "0";
    return e.type == ColumnType::Boolean ? "(- " + e.sql + ")" : e.sql;
}

std::string SqlCipherSql::NumberText(const Expression& e) const {
    return "qm_text(" + e.sql + ")";
}

std::string SqlCipherSql::Quotient(const Expression& a, const Expression& b) const {
    return "qm_div(" + a.sql + ", " + b.sql + ")";
}

std::string SqlCipherSql::Max(const Expression& e) const {
    return "max(" + LeftSide(e, e.type == ColumnType::Text) + ")";
}

std::string SqlCipherSql::Min(const Expression& e) const {
    return "min(" + LeftSide(e, e.type == ColumnType::Text) + ")";
}

std::string SqlCipherSql::Average(const Expression& e) const {
    return "avg(" + e.sql + ")";
}

std::string SqlCipherSql::Both(const std::string& a, const std::string& b) const {
    return "(" + a + " & " + b + ")";
}

std::string SqlCipherSql::Remainder(const Expression& a, const Expression& b) const {
    return "qm_mod(" + a.sql + ", " + b.sql + ")";
}

std::string SqlCipherSql::Sum(const Expression& e) const {
    return "sum(" + e.sql + ")";
}

std::string SqlCipherSql::Converted(const Expression& e, ColumnType type) const {
    return std::string(ConversionTo(type)) + "(" + e.sql + ")";
}

// A number standing alone, as the words True and False and their negations do, would be taken for the place
// of a column.
std::string SqlCipherSql::OrderKey(const Expression& key, bool descending) const {
    if (key.sql.find_first_not_of("0123456789()- ") == std::string::npos) return "";
    return GroupKey(key) + (descending ? " DESC" : "");
}

std::string SqlCipherSql::GroupKey(const Expression& key) const {
    return LeftSide(key, key.type == ColumnType::Text);
}

std::string SqlCipherSql::OfGroup(const Expression& value, const std::vector<ColumnRef>&) const {
    return value.sql;
}

// The rowid makes it an aggregate of its own select even if the value is of the one around it.
std::string SqlCipherSql::Single(const Expression& value, const std::string& rowid) const {
    return "qm_single(" + value.sql + ", " + rowid + ")";
}

std::string SqlCipherSql::Total(const ColumnInfo& column) const {
    const std::string name = QuotedName(column.name);
    return "total(CASE WHEN typeof(" + name + ") = 'text' THEN length(" + name + ") ELSE " + name + " END)";
}

}  // namespace ado
