#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/com/Automation.h"

namespace com {

std::string GuidText(const GUID& guid);               // "{B551ECA0-2F06-47CD-9DE9-DDD9C381468C}"
std::optional<GUID> ReadGuid(std::string_view text);  // that form only, in any case

}  // namespace com
