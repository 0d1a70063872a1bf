#include "platform/ado/dialect/Insert.h"

#include <algorithm>

#include "platform/ado/dialect/Limits.h"
#include "platform/ado/dialect/Refusal.h"

namespace ado {
namespace {

const std::string& InBrackets(const Expression& value) {
    CheckNesting(value.depth + 1);
    return value.sql;
}

[[noreturn]] void RefuseCount() {
    Refuse(error::Statement, "Number of query values and destination fields are not the same.");
}

}  // namespace

void InsertReader::Whole() {
    tokens_.ExpectWord("Into");
    table_ = &RequireTable(catalog_, tokens_.ExpectName("a table"));
    plan_.table = table_->name;
    if (tokens_.AtSymbol("(")) Columns();
    plan_.givesOneRow = !tokens_.AtWord("Select");
    const std::string values = plan_.givesOneRow ? GivenValues() : SelectedValues();
    std::string names;
    for (const ColumnInfo* column : columns_)
        names.append(names.empty() ? "" : ", ") += QuotedName(column->name);
    plan_.head = "INSERT INTO " + QuotedName(table_->name) + " (" + names + ") " + values;
}

void InsertReader::Columns() {
    tokens_.ExpectSymbol("(");
    do Add(tokens_.ExpectName("a field"));
    while (tokens_.TakeSymbol(","));
    tokens_.ExpectSymbol(")");
}

const ColumnInfo& InsertReader::Add(const std::string& name) {
    const ColumnInfo& column = RequireColumn(*table_, name);
    if (std::find(columns_.begin(), columns_.end(), &column) != columns_.end())
        Refuse(error::Statement, "The field '" + column.name + "' is given twice");
    columns_.push_back(&column);
    return column;
}

std::string InsertReader::GivenValues() {
    tokens_.ExpectWord("Values");
    tokens_.ExpectSymbol("(");
    if (columns_.empty())
        for (const ColumnInfo& column : table_->columns) columns_.push_back(&column);
    const Scope none;
    const Draft draft{plan_, catalog_.Sql()};
    ExpressionReader reader(tokens_, none, draft, [this](const Scope& outer, const SubselectUse& use) {
        return SelectReader(tokens_, catalog_, plan_).InParentheses(outer, use);
    });
    std::string values;
    std::size_t count = 0;
    do {
        const Expression value = reader.Condition();
        if (count < columns_.size())
            values.append(values.empty() ? "" : ", ") += InBrackets(Stored(value, *columns_[count], draft));
        ++count;
    } while (tokens_.TakeSymbol(","));
    tokens_.ExpectSymbol(")");
    if (count != columns_.size()) RefuseCount();
    return "VALUES (" + values + ")";
}

// Without a list of fields the select's names are matched with the table's, whatever their order.
std::string InsertReader::SelectedValues() {
    const bool byName = columns_.empty();
    std::size_t place = 0;
    std::string sql =
        SelectReader(tokens_, catalog_, plan_).Inserted([&](const std::string& name) -> const ColumnInfo& {
            if (byName) return Add(name);
            if (place == columns_.size()) RefuseCount();
            return *columns_[place++];
        });
    if (!byName && place != columns_.size()) RefuseCount();
    return sql;
}

}  // namespace ado
