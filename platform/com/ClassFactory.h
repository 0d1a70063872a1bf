#pragma once

#include "platform/com/Automation.h"

namespace com {

// Makes a new object, with one reference; may throw.
using Maker = IUnknown* (*)();

// DllGetClassObject's answer for a class that `maker` makes.
HRESULT GiveFactory(Maker maker, const IID& iid, void** object) noexcept;

}  // namespace com
