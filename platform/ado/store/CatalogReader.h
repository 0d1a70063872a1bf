#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "platform/ado/dialect/Catalog.h"
#include "platform/ado/store/Engine.h"

namespace ado {

// The tables as the store describes them. Keeps only what it found: a table that is missing is asked
// for anew each time, since another program may just have made it.
class CatalogReader final : public Catalog {
  public:
    explicit CatalogReader(Engine& engine) : engine_(engine) {}
    const TableInfo* Table(std::string_view name) override;
    const StoreSql& Sql() const override { return engine_.Sql(); }
    void Forget();  // after a rollback, or after a table was made

  private:
    Engine& engine_;
    std::unordered_map<std::string, std::unique_ptr<TableInfo>> byFoldedName_;
};

}  // namespace ado
