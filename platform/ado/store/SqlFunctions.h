#pragma once

#include <optional>

#include "platform/basic/Error.h"

struct sqlite3;

namespace ado {

// Teaches an open store the functions and the collation that the translator writes into statements:
//   QMTEXT                   text order without regard to case
//   qm_like(text, pattern)   % and _ only, without regard to case
//   qm_ucase, qm_left, qm_cstr, qm_div    the dialect's own UCase, Left, CStr and division
//   qm_bool, qm_int, qm_long, qm_real, qm_text    a value as a field of that type takes it; Null stays Null
//   qm_single(value, rowid)         an aggregate: the value of a subselect that may give at most one row
// A function that fails leaves its error in `raised`, which must outlive the store.
void InstallFunctions(sqlite3* store, std::optional<basic::Error>& raised);

}  // namespace ado
