#include "platform/ado/store/SelectInto.h"

#include <string_view>
#include <vector>

#include "platform/ado/dialect/Scope.h"
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

// A definition without what it defines: from its first bracket, so the columns and whatever stands behind
// them.
std::string Body(const Definition& definition) {
    return definition.sql.substr(definition.sql.find('('));
}

void Run(Engine& engine, const std::string& sql) {
    engine.Prepare(sql)->Step();
}

void CopyIndex(Engine& engine, const Definition& index, const std::string& source,
               const std::string& target) {
    Run(engine, "CREATE INDEX " + QuotedName(IndexNameFor(index.name, source, target)) + " ON " +
                    QuotedName(target) + " " + Body(index));
}

}  // namespace

std::string IndexNameFor(const std::string& index, const std::string& source, const std::string& target) {
    const std::size_t at = basic::FoldCase(index).find(basic::FoldCase(source));
    if (at == std::string::npos) return index + "_" + target;
    return index.substr(0, at) + target + index.substr(at + source.size());
}

void SelectInto(Engine& engine, const std::string& source, const std::string& target) {
    const Definition table = DefinitionsOf(engine, "table", source).at(0);
    Run(engine, "CREATE TABLE " + QuotedName(target) + " " + Body(table));
    Run(engine,
        "INSERT INTO " + QuotedName(target) + " SELECT * FROM " + QuotedName(source) + " ORDER BY rowid");
    for (const Definition& index : DefinitionsOf(engine, "index", source))
        CopyIndex(engine, index, source, target);
}

}  // namespace ado
