#include "queries/Conditions.h"

#include <sstream>

#include "core/Quoting.h"
#include "platform/basic/Text.h"

namespace queries {

std::string WhereAll(const std::vector<std::string>& conditions) {
    std::string where;
    for (const std::string& condition : conditions)
        where += (where.empty() ? " Where " : " And ") + condition;
    return where;
}

// An opening bracket would begin a set of characters in a pattern: it stands as any one character.
std::vector<std::string> HoldsWords(const std::string& field, const std::string& words) {
    std::vector<std::string> conditions;
    std::istringstream text(words);
    for (std::string word; text >> word;)
        conditions.push_back(field + " Like " +
                             qm::QuotedDoubled("%" + basic::Replace(word, "[", "_") + "%"));
    return conditions;
}

}  // namespace queries
