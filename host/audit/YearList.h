#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/clQm.h"
#include "platform/ado/Connection.h"

namespace host {

struct Year {
    std::string longForm;  // "2001-2002"
    bool current = false;
    std::string ShortForm() const { return longForm.substr(0, 4); }
};

// The known years in the order in which they were added. No member of the class gives them, so the register
// is read as it stands, on the connection of who asks: a check on another thread has its own.
std::vector<Year> ReadYears(ado::Connection& books);

// The short form of the year with the flag, read on the class's connection; "" if none bears it.
std::string CurrentYear();

}  // namespace host
