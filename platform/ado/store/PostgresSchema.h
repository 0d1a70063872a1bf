#pragma once

#include <string>

#include "platform/ado/store/Schema.h"

namespace ado {

// The longest name that a server takes, in bytes: it cuts longer ones off without a word.
inline constexpr std::size_t LongestServerName = 63;

// The statements that make a table on a server, its indexes included. Each has a hidden column "rowid", which
// counts the rows in the order in which they came; in a table with a counter it is the counter. Types refuse
// what they do not take, so there are no checks. A counter draws from qm_counter (see functions.sql). Raises
// error::Statement for a name that is too long and for a column without a type.
std::string PostgresDefinition(const SchemaTable& table);
std::string PostgresIndexes(const SchemaTable& table);  // those alone, for rows that came first

}  // namespace ado
