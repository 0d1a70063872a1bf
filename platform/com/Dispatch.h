#pragma once

#include <cstddef>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/com/Automation.h"

// Late binding by a table: a class lists its members, each bound to one of its C++ member functions, and gets
// GetIDsOfNames and Invoke from here.
namespace com {

struct Parameter {
    const char* Name;
    // What the argument is converted to: VT_I2, I4, R8, DATE, BOOL, BSTR; VT_VARIANT leaves it as it is.
    VARTYPE Type;
    bool Optional = false;  // a missing one is 0, "" or an empty VARIANT
    bool ByReference = false;
};

struct Member {
    const char* Name;
    DISPID Id;                          // the get and the let of a property share theirs
    std::uint16_t Flags;                // DISPATCH_METHOD, DISPATCH_PROPERTYGET or DISPATCH_PROPERTYPUT
    std::vector<Parameter> Parameters;  // of a let, the new value is the last
    VARTYPE Result;                     // VT_EMPTY: none
    // Calls the bound function; `data` points at the value of each argument and, last, at the result's. An
    // argument that the caller passes by reference, with the very type, is the caller's own.
    HRESULT (*Call)(void* object, void* const* data);
    const char* Help = "";  // a sentence on what it does
};

// What hosts know of a class: by GetTypeInfo, and by late binding.
struct Interface {
    const char* Name;
    IID Id;
    const char* Help;
    std::vector<Member> Members;
};

namespace detail {

// By value, or as a pointer where the function takes one: by reference, and the result.
template <class P>
P Passed(void* data) {
    if constexpr (std::is_pointer_v<P> && !std::is_same_v<P, BSTR>)
        return static_cast<P>(data);
    else
        return *static_cast<P*>(data);
}

template <auto Function>
struct Binding;

template <class Class, class Return, class... P, Return (Class::*Function)(P...)>
struct Binding<Function> {
    static HRESULT Call(void* object, void* const* data) {
        return Spread(*static_cast<Class*>(object), data, std::index_sequence_for<P...>{});
    }

  private:
    template <std::size_t... I>
    static HRESULT Spread(Class& object, [[maybe_unused]] void* const* data, std::index_sequence<I...>) {
        if constexpr (std::is_same_v<Return, HRESULT>)
            return (object.*Function)(Passed<P>(data[I])...);
        else
            return (object.*Function)(Passed<P>(data[I])...), S_OK;
    }
};

}  // namespace detail

// The Call of a member function that takes the parameters in order and then, if there is one, a pointer to
// the result. It may give a HRESULT or throw basic::Error. The table's object must be of the function's own
// class.
template <auto Function>
inline constexpr auto Bind = &detail::Binding<Function>::Call;

using Members = std::span<const Member>;

// IDispatch::GetIDsOfNames over a table; the id of an argument is its position.
HRESULT FindNames(Members members, char16_t** names, std::uint32_t count, DISPID* ids) noexcept;

// One IDispatch::Invoke as it arrived.
struct Request {
    DISPID Id;
    const IID& Reserved;
    LCID Locale;
    std::uint16_t Flags;
    DISPPARAMS* Arguments;
    VARIANT* Result;
    EXCEPINFO* Failure;
    std::uint32_t* BadArgument;
};

// IDispatch::Invoke over a table. A get without parameters that gives an object hands arguments on to that
// object's default member, so that rows.Fields("Name") and rows("Name") work.
HRESULT Invoke(Members members, void* object, const Request& request) noexcept;

}  // namespace com
