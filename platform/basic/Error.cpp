#include "platform/basic/Error.h"

#include <utility>

namespace basic {
namespace {

const char* Describe(std::int32_t number) {
    switch (number) {
        case error::InvalidCall:
            return "Invalid procedure call or argument";
        case error::Overflow:
            return "Overflow";
        case error::Subscript:
            return "Subscript out of range";
        case error::DivisionByZero:
            return "Division by zero";
        case error::TypeMismatch:
            return "Type mismatch";
        case error::ObjectNotSet:
            return "Object variable not set";
        case error::InvalidNull:
            return "Invalid use of Null";
        case error::NotSupported:
            return "Object doesn't support this property or method";
        default:
            return "Application-defined or object-defined error";
    }
}

}  // namespace

Error::Error(std::int32_t number, std::string description, std::string source)
    : Number(number), Description(std::move(description)), Source(std::move(source)) {}

void Raise(std::int32_t number, std::string_view source) {
    throw Error(number, Describe(number), std::string(source));
}

}  // namespace basic
