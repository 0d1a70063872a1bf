#include "platform/ado/store/ServerValue.h"

#include <bit>
#include <cstddef>

namespace ado {
namespace {

std::string BigEndian(std::uint64_t bits) {
    std::string bytes(sizeof bits, '\0');
    for (std::size_t at = bytes.size(); at-- > 0; bits >>= 8) bytes[at] = static_cast<char>(bits & 0xff);
    return bytes;
}

}  // namespace

ServerValue WholeValue(std::int64_t value) {
    return {ServerValue::Int8, BigEndian(static_cast<std::uint64_t>(value))};
}

ServerValue RealValue(double value) {
    return {ServerValue::Float8, BigEndian(std::bit_cast<std::uint64_t>(value))};
}

ServerValue TruthValue(bool value) {
    return {ServerValue::Bool, std::string(1, value ? '\1' : '\0')};
}

ServerValue TextValue(std::string_view text) {
    return {ServerValue::Text, std::string(text)};
}

}  // namespace ado
