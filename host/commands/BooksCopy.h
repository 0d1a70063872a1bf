#pragma once

#include <string>

#include "platform/ado/Connection.h"

namespace host {

// A copy of the books opened by itself, beside those that the class has open. Raises what opening raises.
ado::ConnectionPtr OpenCopy(const std::string& file);

// Raises where a page or an index of the copy does not check out.
void RefuseDamaged(ado::Connection& copy);

}  // namespace host
