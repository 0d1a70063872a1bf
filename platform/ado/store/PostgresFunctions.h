#pragma once

#include <string>

namespace ado {

// The version of the functions that this program's statements call on a server; qm_version() there gives the
// one that is installed.
inline constexpr int ServerFunctionsVersion = 2;

// The script that installs them in the schema that comes first in the search path, over an older version too:
// the text of functions.sql with the program's own tables of small and capital letters.
std::string ServerFunctions();

}  // namespace ado
