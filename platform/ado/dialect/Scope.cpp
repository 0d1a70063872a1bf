#include "platform/ado/dialect/Scope.h"

#include <algorithm>

#include "platform/ado/dialect/Refusal.h"
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

void Scope::Add(TableRef table) {
    for (const TableRef& other : tables_)
        if (basic::EqualText(other.alias, table.alias))
            Refuse(error::Statement, "Two tables of the statement are called '" + table.alias + "'");
    tables_.push_back(std::move(table));
}

bool Scope::Holds(const ColumnRef& column) const {
    return std::any_of(tables_.begin(), tables_.end(),
                       [&](const TableRef& table) { return &table == column.table; });
}

ColumnRef Scope::Find(std::string_view table, std::string_view column) const {
    ColumnRef found;
    for (const TableRef& ref : tables_) {
        if (!table.empty() && !basic::EqualText(ref.alias, table)) continue;
        const ColumnInfo* info = ColumnOf(*ref.info, column);
        if (info == nullptr) continue;
        if (found.column != nullptr)
            Refuse(error::Statement, "The field '" + std::string(column) +
                                         "' could refer to more than one table of the statement");
        found = {&ref, info};
    }
    return found.column == nullptr && outer_ != nullptr ? outer_->Find(table, column) : found;
}

const TableInfo& RequireTable(Catalog& catalog, const std::string& name) {
    const TableInfo* table = catalog.Table(name);
    if (table == nullptr) Refuse(error::NoSuchTable, "The table '" + name + "' is not in the books");
    return *table;
}

const ColumnInfo& RequireColumn(const TableInfo& table, const std::string& name) {
    const ColumnInfo* column = ColumnOf(table, name);
    if (column == nullptr)
        Refuse(error::UnknownName, "The table '" + table.name + "' has no field '" + name + "'");
    return *column;
}

}  // namespace ado
