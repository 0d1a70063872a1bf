#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/clQm.h"

namespace host {

struct Year {
    std::string longForm;  // "2001-2002"
    bool current = false;
    std::string ShortForm() const { return longForm.substr(0, 4); }
};

// The known years in the order in which they were added. No member of the class gives them, so the register
// is read as it stands.
std::vector<Year> ReadYears();

// The short form of the year with the flag, "" if none bears it.
std::string CurrentYear();

}  // namespace host
