#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/dialect/Catalog.h"

namespace ado {

struct SchemaColumn {
    std::string name;
    ColumnType type = ColumnType::Any;
    bool counter = false;      // the store assigns it
    std::string defaultValue;  // as a literal of SQL, or ""
};

struct SchemaIndex {
    std::string name;
    std::vector<std::string> columns;
};

// A table's definition without the words of any store.
struct SchemaTable {
    std::string name;
    std::vector<SchemaColumn> columns;
    std::vector<SchemaIndex> indexes;
    std::int64_t counted = 0;  // the last number that its counter gave
};

// The type by its word, without regard to case: BOOLEAN, SMALLINT, INTEGER, DOUBLE, TEXT; Any for another.
ColumnType TypeOfWord(std::string_view word);

// Reads definitions as the embedded store has them: CREATE TABLE and CREATE INDEX statements, such as
// data/schema.sql. Checks are left out: they follow from the types. Raises error::Statement for anything
// else.
std::vector<SchemaTable> ReadSchema(std::string_view script);

std::string IndexDefinitions(const SchemaTable& table);  // the statements of a file
std::string ColumnList(const SchemaTable& table);        // "a", "b"

// The same definition under another name, its indexes named after it.
SchemaTable Renamed(const SchemaTable& table, const std::string& name);

}  // namespace ado
