#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace basic {

// A run-time error of the lower layers. Every layer throws this and nothing else.
struct Error : std::exception {
    Error(std::int32_t number, std::string description, std::string source = {});

    std::int32_t Number;      // the classic number, such as 94; a failed count logs 0 without an Error
    std::string Description;  // what the user is shown and the error log keeps
    std::string Source;       // the layer that raised it, such as "ado.Recordset"

    const char* what() const noexcept override { return Description.c_str(); }
};

// The classic numbers that the lower layers raise. Those of the data layer stand in ado/Errors.h.
namespace error {
inline constexpr std::int32_t InvalidCall = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t Subscript = 9;
inline constexpr std::int32_t DivisionByZero = 11;
inline constexpr std::int32_t TypeMismatch = 13;
inline constexpr std::int32_t ObjectNotSet = 91;
inline constexpr std::int32_t InvalidNull = 94;
inline constexpr std::int32_t NotSupported = 438;
}  // namespace error

// Throws Error with the number and its classic description ("Overflow", "Type mismatch", ...).
[[noreturn]] void Raise(std::int32_t number, std::string_view source = "basic");

}  // namespace basic
