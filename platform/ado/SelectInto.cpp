#include "platform/ado/SelectInto.h"

#include <string_view>
#include <vector>

#include "platform/ado/CatalogReader.h"
#include "platform/basic/Text.h"

namespace ado {
namespace {

struct Definition {
    std::string name;
    std::string sql;
};

std::vector<Definition> DefinitionsOf(Engine& engine, std::string_view type, const std::string& table) {
    const auto rows = engine.Prepare(
        "SELECT name, sql FROM sqlite_master WHERE type = ?1 AND tbl_name = ?2 COLLATE NOCASE "
        "AND sql IS NOT NULL ORDER BY rowid");
    rows->BindText(1, type);
    rows->BindText(2, table);
    std::vector<Definition> definitions;
    while (rows->Step()) definitions.push_back({std::string(rows->Text(0)), std::string(rows->Text(1))});
    return definitions;
}

// The end of the name that starts at `at`, quoted or not.
std::size_t NameEnd(std::string_view sql, std::size_t at) {
    constexpr std::string_view opening = "\"[`'", closing = "\"]`'";
    const std::size_t quote = opening.find(sql[at]);
    if (quote == std::string_view::npos) return sql.find_first_of(" \t\r\n(", at);
    return sql.find(closing[quote], at + 1) + 1;
}

// What follows the table's name in a definition: the columns in their brackets, and whatever stands behind.
std::string_view AfterTableName(std::string_view sql, std::string_view word) {
    // The word before the name is TABLE or ON, as a word of its own.
    const std::string upper = basic::UCase(sql);
    const std::size_t at = sql.find_first_not_of(" \t\r\n", upper.find(word) + word.size());
    return sql.substr(NameEnd(sql, at));
}

void Run(Engine& engine, const std::string& sql) {
    engine.Prepare(sql)->Step();
}

void CopyIndex(Engine& engine, const Definition& index, const std::string& source,
               const std::string& target) {
    Run(engine, "CREATE INDEX " + QuotedName(IndexNameFor(index.name, source, target)) + " ON " +
                    QuotedName(target) + std::string(AfterTableName(index.sql, " ON ")));
}

}  // namespace

std::string IndexNameFor(const std::string& index, const std::string& source, const std::string& target) {
    const std::size_t at = basic::FoldCase(index).find(basic::FoldCase(source));
    if (at == std::string::npos) return index + "_" + target;
    return index.substr(0, at) + target + index.substr(at + source.size());
}

void SelectInto(Engine& engine, const std::string& source, const std::string& target) {
    const Definition table = DefinitionsOf(engine, "table", source).at(0);
    Run(engine, "CREATE TABLE " + QuotedName(target) + std::string(AfterTableName(table.sql, "TABLE")));
    Run(engine,
        "INSERT INTO " + QuotedName(target) + " SELECT * FROM " + QuotedName(source) + " ORDER BY rowid");
    for (const Definition& index : DefinitionsOf(engine, "index", source))
        CopyIndex(engine, index, source, target);
}

}  // namespace ado
