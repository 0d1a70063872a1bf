#include "platform/ado/Scope.h"

#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

const ColumnInfo* ColumnOf(const TableInfo& table, std::string_view name) {
    for (const ColumnInfo& column : table.columns)
        if (basic::EqualText(column.name, name)) return &column;
    return nullptr;
}

}  // namespace

std::string QuotedName(std::string_view name) {
    return "\"" + basic::Replace(name, "\"", "\"\"") + "\"";
}

ColumnRef Scope::Find(std::string_view table, std::string_view column) const {
    ColumnRef found;
    for (const TableRef& ref : tables_) {
        if (!table.empty() && !basic::EqualText(ref.alias, table)) continue;
        const ColumnInfo* info = ColumnOf(*ref.info, column);
        if (info == nullptr) continue;
        if (found.column != nullptr)
            throw basic::Error(
                error::Statement,
                "The field '" + std::string(column) + "' could refer to more than one table of the statement",
                "ado");
        found = {&ref, info};
    }
    return found.column == nullptr && outer_ != nullptr ? outer_->Find(table, column) : found;
}

const TableInfo& RequireTable(Catalog& catalog, const std::string& name) {
    const TableInfo* table = catalog.Table(name);
    if (table == nullptr)
        throw basic::Error(error::NoSuchTable, "The table '" + name + "' is not in the books", "ado");
    return *table;
}

const ColumnInfo& RequireColumn(const TableInfo& table, const std::string& name) {
    const ColumnInfo* column = ColumnOf(table, name);
    if (column == nullptr)
        throw basic::Error(error::UnknownName, "The table '" + table.name + "' has no field '" + name + "'",
                           "ado");
    return *column;
}

}  // namespace ado
