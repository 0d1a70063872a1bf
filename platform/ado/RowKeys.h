#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace ado {

// Which row of its table a row of a select is. It stays the same as long as the row stands; one that is gone
// may leave its key to a row that is added later.
using RowKey = std::int64_t;

// The keys of a long list in their order: 4 bytes each, unless a table numbers its rows beyond that.
class RowKeys {
  public:
    void Reserve(std::size_t count) { low_.reserve(count); }
    void Add(RowKey key);
    void Resize(std::size_t count);  // what it adds is 0, which no row bears
    std::size_t Size() const { return low_.size(); }
    RowKey operator[](std::size_t place) const;
    std::vector<RowKey> Part(std::size_t first, std::size_t count) const;  // fewer at the end
    std::optional<std::size_t> PlaceOf(RowKey key) const;
    // Those at these places, in their order.
    RowKeys At(const std::vector<std::uint32_t>& places) const;

  private:
    std::vector<std::uint32_t> low_, high_;  // of the second as many, or none as long as all of them are 0
};

}  // namespace ado
