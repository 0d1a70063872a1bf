#include "platform/basic/Clock.h"

#include <ctime>

#include "platform/basic/Dates.h"

namespace basic {
namespace {

std::optional<Date>& Stopped() {
    static std::optional<Date> at;
    return at;
}

}  // namespace

Date Clock::Now() {
    if (Stopped()) return *Stopped();
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const Date day = MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    return {day.Serial + (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / 86400.0};
}

Date Clock::Today() {
    return DatePart(Now());
}

void Clock::Set(std::optional<Date> now) {
    Stopped() = now;
}

}  // namespace basic
