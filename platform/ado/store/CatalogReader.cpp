#include "platform/ado/store/CatalogReader.h"

#include "platform/ado/dialect/Scope.h"
#include "platform/ado/store/Schema.h"
#include "platform/basic/Text.h"

namespace ado {

const TableInfo* CatalogReader::Table(std::string_view name) {
    std::string folded = basic::FoldCase(name);
    if (const auto found = byFoldedName_.find(folded); found != byFoldedName_.end())
        return found->second.get();

    const auto tables = engine_.Prepare(
        "SELECT name, sql FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' "
        "AND name = ?1 COLLATE NOCASE");
    tables->BindText(1, name);
    if (!tables->Step()) return nullptr;
    auto table = std::make_unique<TableInfo>();
    table->name = tables->Text(0);
    const bool counts = tables->Text(1).find("AUTOINCREMENT") != std::string_view::npos;

    const auto columns = engine_.Prepare("PRAGMA table_info(" + QuotedName(table->name) + ")");
    while (columns->Step())
        table->columns.push_back({std::string(columns->Text(1)), TypeOfWord(columns->Text(2)),
                                  counts && columns->Integer(5) != 0});
    return byFoldedName_.emplace(std::move(folded), std::move(table)).first->second.get();
}

void CatalogReader::Forget() {
    byFoldedName_.clear();
}

}  // namespace ado
