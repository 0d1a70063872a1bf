#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/basic/Value.h"
#include "platform/com/Automation.h"

namespace com {

// An array of VARIANTs of two dimensions, both from 0, as a host takes it over: `to` is overwritten. The
// values stand with the first dimension running fastest.
void StoreTable(const std::vector<basic::Value>& values, std::size_t firstDimension, VARIANT& to);

// The VARIANTs of an array of one dimension; raises 13 for an array of another kind.
std::span<const VARIANT> ListOf(const VARIANT& array);

}  // namespace com
