#pragma once

#include <string>

#include "platform/basic/Error.h"

namespace queries {

// What who reads must know of books on a server.
bool IsOnServer(const std::string& dataPath);  // a server's address, not a folder
bool IsLost(
    const basic::Error& error);  // the connection went; what was asked of one moment may be asked anew

}  // namespace queries
