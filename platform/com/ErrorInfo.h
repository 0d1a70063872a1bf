#pragma once

#include <exception>
#include <string>
#include <type_traits>

#include "platform/basic/Error.h"
#include "platform/com/Automation.h"

namespace com {

// 1 to 65535 is a classic run-time number and goes into FACILITY_CONTROL_ERROR; a negative number is a
// HRESULT already; any other is E_FAIL.
HRESULT ResultOf(std::int32_t number);

// Makes the exception in flight this thread's error object and gives its HRESULT. Only within a catch.
HRESULT Failure() noexcept;

// The one guard at the boundary: no exception passes it, and it begins with no error object on the thread. A
// body may give a HRESULT of its own.
template <class Body>
HRESULT Guarded(const Body& body) noexcept {
    SetErrorInfo(0, nullptr);
    try {
        if constexpr (std::is_same_v<std::invoke_result_t<Body>, HRESULT>)
            return body();
        else
            return body(), S_OK;
    } catch (...) {
        return Failure();
    }
}

// What a pointer argument points at; raises E_POINTER for null.
template <class T>
T& Required(T* pointer) {
    if (pointer == nullptr) throw basic::Error(E_POINTER, "Invalid pointer", "com");
    return *pointer;
}

// Fills `failure` (which may be null) with the result of a failed call and this thread's error object, which
// it takes.
void Describe(HRESULT result, EXCEPINFO* failure) noexcept;

}  // namespace com
