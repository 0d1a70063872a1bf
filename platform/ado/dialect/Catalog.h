#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ado {

enum class ColumnType { Any, Boolean, Integer, Long, Double, Text };

struct ColumnInfo {
    std::string name;
    ColumnType type = ColumnType::Any;
    bool counter = false;  // the store assigns it
};

struct TableInfo {
    std::string name;  // as the store spells it
    std::vector<ColumnInfo> columns;
};

class StoreSql;

// What the translator asks about the store. Never remembers that a table is missing.
class Catalog {
  public:
    virtual ~Catalog() = default;
    // Without regard to case; nullptr if there is none.
    virtual const TableInfo* Table(std::string_view name) = 0;
    virtual const StoreSql& Sql() const = 0;  // the words that it takes
};

}  // namespace ado
