#pragma once

#include <string>
#include <vector>

#include "queries/Reading.h"

namespace queries {

struct PrimaryGroup {
    std::string name, statement;  // "T", "P" or "B": see FinalResults
};

// In the order in which lists and reports show them.
std::vector<PrimaryGroup> PrimaryGroups(Reading& books);

}  // namespace queries
