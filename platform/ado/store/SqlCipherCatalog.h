#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/dialect/Catalog.h"
#include "platform/ado/store/Schema.h"
#include "platform/ado/store/SqlHandle.h"

// What the embedded store tells of its tables, from their definitions; see Engine for what each does.
namespace ado::sqlcipher {

std::vector<std::string> Tables(SqlHandle& store);
std::unique_ptr<TableInfo> Describe(SqlHandle& store, std::string_view table);
SchemaTable Definition(SqlHandle& store, const std::string& table);
// By the source's own definition: a plain "create as select" would lose types and defaults.
void CopyTable(SqlHandle& store, const std::string& source, const std::string& target);

}  // namespace ado::sqlcipher
