#pragma once

#include <string>
#include <string_view>

#include "platform/basic/Value.h"

namespace basic {

// Shows a value by one of the masks that this system uses: "#,##,###.00", "##,#00.00", "######.00",
// "#,##,###", "0.00", "standard" (any case), "dd-MMM-yyyy", "dd/MM/yyyy", "hh:mm:ss". Any other mask
// raises 5. Number masks round half away from zero on the decimal reading, and group by three with ',' and
// '.'; only "standard" follows the user's locale (en_IN: 12,34,567.00; commas by three where it is
// not known). Null and "" give ""; a text that is
// no number (for a date mask: no date) comes back as it is. Month names are English.
std::string Format(const Value& value, std::string_view mask);

// The locale that "standard" follows, by its name ("en_IN", "de_DE", "C"). Unset, it is the one of LC_ALL,
// LC_NUMERIC or LANG, in this order. Tests set it.
void SetNumberLocale(std::string_view name);

}  // namespace basic
