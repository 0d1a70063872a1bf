#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/dialect/Catalog.h"
#include "platform/ado/store/Engine.h"
#include "platform/ado/store/Schema.h"

// What a server tells of the books' tables, those of the search path's first schema; see Engine for what each
// does. The column "rowid" and what the program keeps for itself are left out.
namespace ado::postgres {

std::vector<std::string> Tables(Engine& server);
std::unique_ptr<TableInfo> Describe(Engine& server, std::string_view table);
// The whole definition of a table as Describe names it, its defaults and indexes included.
SchemaTable DefinitionOf(Engine& server, const std::string& table);
// The statements that make the copy and fill it, in their order.
std::vector<std::string> CopyOf(Engine& server, const std::string& source, const std::string& target);
// Looks at each index, and at each row from it, where the extension amcheck is installed and granted.
std::vector<std::string> CheckPages(Engine& server);

}  // namespace ado::postgres
