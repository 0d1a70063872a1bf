#include "platform/ado/RowKeys.h"

#include <algorithm>

namespace ado {

void RowKeys::Add(RowKey key) {
    const auto whole = static_cast<std::uint64_t>(key);
    const auto high = static_cast<std::uint32_t>(whole >> 32U);
    if (high != 0) high_.resize(low_.size());
    low_.push_back(static_cast<std::uint32_t>(whole));
    if (high != 0 || !high_.empty()) high_.push_back(high);
}

void RowKeys::Resize(std::size_t count) {
    low_.resize(count);
    if (!high_.empty()) high_.resize(count);
}

RowKey RowKeys::operator[](std::size_t place) const {
    const std::uint64_t high = high_.empty() ? 0 : high_[place];
    return static_cast<RowKey>(high << 32U | low_[place]);
}

std::vector<RowKey> RowKeys::Part(std::size_t first, std::size_t count) const {
    std::vector<RowKey> part;
    for (std::size_t place = first; place < std::min(first + count, Size()); ++place)
        part.push_back((*this)[place]);
    return part;
}

std::optional<std::size_t> RowKeys::PlaceOf(RowKey key) const {
    for (std::size_t place = 0; place < Size(); ++place)
        if ((*this)[place] == key) return place;
    return std::nullopt;
}

RowKeys RowKeys::At(const std::vector<std::uint32_t>& places) const {
    RowKeys keys;
    keys.Reserve(places.size());
    for (const std::uint32_t place : places) keys.Add((*this)[place]);
    return keys;
}

}  // namespace ado
