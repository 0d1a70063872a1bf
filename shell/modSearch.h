#pragma once

#include <string>

namespace qm {

// What the look-up and its callers hand each other. Nobody clears them before a showing: a look-up that is
// closed without a choice leaves the results of the one before.
// Set by the caller: the query up to and with "like ", for what is typed.
extern std::string SearchLikePrefix;
extern std::string SearchResultKey;   // first column of the chosen row, or "0"
extern std::string SearchResultName;  // its second column

}  // namespace qm
