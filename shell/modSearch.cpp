#include "shell/modSearch.h"

namespace qm {

std::string SearchLikePrefix;
std::string SearchResultKey;
std::string SearchResultName;

}  // namespace qm
