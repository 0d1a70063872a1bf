#include "platform/ado/store/CatalogReader.h"

#include <utility>

#include "platform/basic/Text.h"

namespace ado {

const TableInfo* CatalogReader::Table(std::string_view name) {
    std::string folded = basic::FoldCase(name);
    if (const auto found = byFoldedName_.find(folded); found != byFoldedName_.end())
        return found->second.get();
    std::unique_ptr<TableInfo> table = engine_.Describe(name);
    if (!table) return nullptr;
    return byFoldedName_.emplace(std::move(folded), std::move(table)).first->second.get();
}

void CatalogReader::Forget() {
    byFoldedName_.clear();
}

}  // namespace ado
