#pragma once

#include <string>
#include <vector>

namespace queries {

// " Where a And b", "" of none.
std::string WhereAll(const std::vector<std::string>& conditions);

// A condition for each word of a text: the field holds it somewhere, without regard to case.
std::vector<std::string> HoldsWords(const std::string& field, const std::string& words);

}  // namespace queries
