#include "platform/ado/store/PostgresSchema.h"

#include "platform/ado/dialect/Refusal.h"
#include "platform/ado/dialect/Scope.h"

namespace ado {
namespace {

std::string Name(const std::string& name) {
    if (name.size() > LongestServerName)
        Refuse(error::Statement, "The name '" + name + "' is longer than the 63 bytes that a server takes");
    return QuotedName(name);
}

std::string TypeOf(const SchemaColumn& column) {
    switch (column.type) {
        case ColumnType::Boolean:
            return "boolean NOT NULL DEFAULT FALSE";
        case ColumnType::Integer:
            return "smallint";
        case ColumnType::Long:
            return "integer";
        case ColumnType::Double:
            return "double precision";
        case ColumnType::Text:
            return "text COLLATE \"C\"";
        case ColumnType::Any:
            break;
    }
    Refuse(error::Statement, "The field '" + column.name + "' has no type that a server knows");
}

std::string ColumnOf(const SchemaColumn& column) {
    std::string text = Name(column.name) + " " + TypeOf(column);
    if (column.type != ColumnType::Boolean && !column.defaultValue.empty())
        text += " DEFAULT " + column.defaultValue;
    return text;
}

// Draws the number of a row that brings none; one that brings its own moves the counter behind it.
std::string CounterOf(const SchemaTable& table, const std::string& column) {
    const std::string function = Name("qm_count_" + table.name), field = "NEW." + Name(column);
    return "INSERT INTO qm_counter VALUES ('" + table.name + "', 0);\nCREATE FUNCTION " + function +
           "() RETURNS trigger LANGUAGE plpgsql AS $$\nBEGIN\n    UPDATE qm_counter SET last = CASE WHEN " +
           field + " IS NULL THEN last + 1 ELSE greatest(last, " + field +
           ") END WHERE name = TG_TABLE_NAME\n        RETURNING coalesce(" + field + ", last) INTO " + field +
           ";\n    RETURN NEW;\nEND $$;\nCREATE TRIGGER qm_count BEFORE INSERT ON " + Name(table.name) +
           " FOR EACH ROW EXECUTE FUNCTION " + function + "();\n";
}

}  // namespace

// In the order of Order By, where Nulls are the least, so that it may walk along them.
std::string PostgresIndexes(const SchemaTable& table) {
    std::string statements;
    for (const SchemaIndex& index : table.indexes) {
        std::string fields;
        for (const std::string& field : index.columns)
            fields += (fields.empty() ? "" : ", ") + Name(field) + " NULLS FIRST";
        statements += "CREATE INDEX " + Name(index.name) + " ON " + Name(table.name) + " (" + fields + ");\n";
    }
    return statements;
}

std::string PostgresDefinition(const SchemaTable& table) {
    std::string columns, rowid = "bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY", rest;
    for (const SchemaColumn& column : table.columns) {
        columns += "    " + ColumnOf(column) + ",\n";
        if (!column.counter) continue;
        rowid = "bigint GENERATED ALWAYS AS (" + Name(column.name) + "::bigint) STORED PRIMARY KEY";
        rest += CounterOf(table, column.name);
    }
    return "CREATE TABLE " + Name(table.name) + " (\n" + columns + "    rowid " + rowid + "\n);\n" + rest +
           PostgresIndexes(table);
}

}  // namespace ado
