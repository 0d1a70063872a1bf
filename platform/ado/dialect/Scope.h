#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/dialect/Catalog.h"

namespace ado {

std::string QuotedName(std::string_view name);  // "name", as the store's SQL has it

struct TableRef {
    std::string alias;  // or the table's own name
    const TableInfo* info = nullptr;
};

struct ColumnRef {
    const TableRef* table = nullptr;
    const ColumnInfo* column = nullptr;
    std::string Sql() const { return QuotedName(table->alias) + "." + QuotedName(column->name); }
};

// The tables of one From, in order, and those around it for a select within a statement. Resolves names
// without regard to case.
class Scope {
  public:
    explicit Scope(const Scope* outer = nullptr) : outer_(outer) {}
    void Add(TableRef table);  // raises error::Statement for a second one of that name
    const std::vector<TableRef>& Tables() const { return tables_; }
    bool Holds(const ColumnRef& column) const;  // it is of one of these tables, not of one around

    // nullptr column where no table bears the name. Raises error::Statement for a bare name that two tables
    // bear.
    ColumnRef Find(std::string_view table, std::string_view column) const;

  private:
    const Scope* outer_;
    std::vector<TableRef> tables_;
};

// The table, or error::NoSuchTable.
const TableInfo& RequireTable(Catalog& catalog, const std::string& name);
// The column of one table, or error::UnknownName.
const ColumnInfo& RequireColumn(const TableInfo& table, const std::string& name);

}  // namespace ado
