#pragma once

#include "platform/com/Dispatch.h"

namespace com {

// The type information of an interface, which stays for the whole run, with one reference.
HRESULT GiveTypeInfo(const Interface& shown, ITypeInfo** info) noexcept;

}  // namespace com
