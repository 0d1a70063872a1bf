#pragma once

#include <optional>

#include "platform/basic/Value.h"

namespace basic {

// The one source of today's date and the time of day.
class Clock {
  public:
    static Date Now();
    static Date Today();                       // Now without the time of day
    static void Set(std::optional<Date> now);  // tests stop the clock at `now`; nullopt lets it run again
};

}  // namespace basic
