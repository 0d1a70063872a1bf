#include "platform/ado/store/SqlCipherCatalog.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/IndexName.h"
#include "platform/ado/store/Schema.h"
#include "platform/basic/Text.h"

namespace ado::sqlcipher {
namespace {

struct Part {
    std::string name;
    std::string sql;
};

std::vector<Part> DefinitionsOf(SqlHandle& store, std::string_view type, const std::string& table) {
    const auto rows = store.Prepare(
        "SELECT name, sql FROM sqlite_master WHERE type = ?1 AND tbl_name = ?2 COLLATE NOCASE "
        "AND sql IS NOT NULL ORDER BY rowid");
    rows->BindText(1, type);
    rows->BindText(2, table);
    std::vector<Part> definitions;
    while (rows->Step()) definitions.push_back({std::string(rows->Text(0)), std::string(rows->Text(1))});
    return definitions;
}

// A definition without what it defines: from its first bracket, so the columns and whatever stands behind
// them.
std::string Body(const Part& definition) {
    return definition.sql.substr(definition.sql.find('('));
}

void CopyIndex(SqlHandle& store, const Part& index, const std::string& source, const std::string& target) {
    store.Run("CREATE INDEX " + QuotedName(IndexNameFor(index.name, source, target)) + " ON " +
              QuotedName(target) + " " + Body(index));
}

}  // namespace

std::vector<std::string> Tables(SqlHandle& store) {
    const auto rows = store.Prepare(
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY name");
    std::vector<std::string> names;
    while (rows->Step()) names.emplace_back(rows->Text(0));
    return names;
}

std::unique_ptr<TableInfo> Describe(SqlHandle& store, std::string_view name) {
    const auto tables = store.Prepare(
        "SELECT name, sql FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' "
        "AND name = ?1 COLLATE NOCASE");
    tables->BindText(1, name);
    if (!tables->Step()) return nullptr;
    auto table = std::make_unique<TableInfo>();
    table->name = tables->Text(0);
    const bool counts = tables->Text(1).find("AUTOINCREMENT") != std::string_view::npos;

    const auto columns = store.Prepare("PRAGMA table_info(" + QuotedName(table->name) + ")");
    while (columns->Step())
        table->columns.push_back({std::string(columns->Text(1)), TypeOfWord(columns->Text(2)),
                                  counts && columns->Integer(5) != 0});
    return table;
}

SchemaTable Definition(SqlHandle& store, const std::string& table) {
    std::string script;
    for (const char* type : {"table", "index"})
        for (const Part& part : DefinitionsOf(store, type, table)) script += part.sql + ";\n";
    SchemaTable definition = ReadSchema(script).at(0);
    const bool counts = std::any_of(definition.columns.begin(), definition.columns.end(),
                                    [](const SchemaColumn& column) { return column.counter; });
    if (!counts) return definition;
    const auto last = store.Prepare("SELECT seq FROM sqlite_sequence WHERE name = ?1");
    last->BindText(1, definition.name);
    if (last->Step()) definition.counted = last->Integer(0);
    return definition;
}

void CopyTable(SqlHandle& store, const std::string& source, const std::string& target) {
    const Part table = DefinitionsOf(store, "table", source).at(0);
    store.Run("CREATE TABLE " + QuotedName(target) + " " + Body(table));
    store.Run("INSERT INTO " + QuotedName(target) + " SELECT * FROM " + QuotedName(source) +
              " ORDER BY rowid");
    for (const Part& index : DefinitionsOf(store, "index", source)) CopyIndex(store, index, source, target);
}

}  // namespace ado::sqlcipher
