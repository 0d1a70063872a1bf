#pragma once

#include <string>

#include "platform/ado/Connection.h"

namespace host {

// Copies open books into a folder or onto a server where none stand, and compares each row. `roles`: see
// ado::CopyBooks. Raises basic::Error, and leaves nothing behind then.
void CopyTo(ado::Connection& source, const std::string& to, bool roles = false);

}  // namespace host
