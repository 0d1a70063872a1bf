#pragma once

#include <cstdint>
#include <string>

#include "platform/basic/Value.h"

namespace qm {

// Every number that is drawn, of a voucher, a movement, an order, an item: the highest that is there plus 1,
// or 1 where there is none. Nothing is reserved: two users who save at once can take the same. Kept 11.

// The number after the highest, which is Null where there is none; what is shown but not kept in 32 bits.
double NumberAfter(const basic::Value& highest);

// The number after the one that a select of a highest finds. Raises 6 "Overflow" beyond 32 bits.
std::int32_t NextNumber(const std::string& highest);

}  // namespace qm
