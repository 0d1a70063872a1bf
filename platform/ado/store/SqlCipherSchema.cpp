#include "platform/ado/store/SqlCipherSchema.h"

#include "platform/ado/dialect/Refusal.h"
#include "platform/ado/dialect/Scope.h"

namespace ado {
namespace {

// The type's word and, by the type, what may stand there: a whole number may enter a text or a number, a Null
// anything but a boolean, where it is False.
std::string ColumnOf(const SchemaColumn& column) {
    const std::string name = QuotedName(column.name);
    const auto of = [&](const std::string& word, const std::string& kinds) {
        const std::string given = column.defaultValue.empty() ? "" : " DEFAULT " + column.defaultValue;
        return name + " " + word + given + " CHECK (typeof(" + name + ") IN (" + kinds + "'null'))";
    };
    if (column.counter) return name + " INTEGER PRIMARY KEY AUTOINCREMENT";
    switch (column.type) {
        case ColumnType::Boolean:
            return name + " BOOLEAN NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK (typeof(" + name +
                   ") = 'integer' AND " + name + " IN (0, 1))";
        case ColumnType::Integer:
            return of("SMALLINT", "'integer', ");
        case ColumnType::Long:
            return of("INTEGER", "'integer', ");
        case ColumnType::Double:
            return of("DOUBLE", "'real', 'integer', ");
        case ColumnType::Text:
            return of("TEXT", "'text', 'integer', ");
        case ColumnType::Any:
            break;
    }
    Refuse(error::Statement, "The field '" + column.name + "' has no type that is known");
}

}  // namespace

std::string SqlCipherDefinition(const SchemaTable& table) {
    std::string columns;
    for (const SchemaColumn& column : table.columns)
        columns += (columns.empty() ? "    " : ",\n    ") + ColumnOf(column);
    return "CREATE TABLE " + QuotedName(table.name) + " (\n" + columns + "\n);\n";
}

}  // namespace ado
