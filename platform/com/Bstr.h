#pragma once

#include <string>
#include <string_view>

#include "platform/com/Automation.h"

namespace com {

std::string TextOf(BSTR text);         // as UTF-8; null is ""
BSTR MakeBstr(std::string_view utf8);  // the caller frees it; "" gives an empty one, not null

}  // namespace com
