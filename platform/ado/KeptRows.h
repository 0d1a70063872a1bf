#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/basic/Value.h"

namespace ado {

class RowStore;

// The rows that a read-only record set showed when it was asked for them, shared with it and not copied. They
// outlive its Close, Requery and Filter, so a list that draws from them stands whatever becomes of the set.
class KeptRows {
  public:
    static constexpr std::uint32_t Gone = 0xffffffff;  // in place of a row that stands no more: reads Null
    KeptRows(std::shared_ptr<const RowStore> rows, std::shared_ptr<const std::vector<std::uint32_t>> visible);

    std::int64_t Count() const;
    basic::Value ValueAt(std::int64_t row, std::size_t field) const;  // both from 0; raises NoCurrentRecord
    std::int64_t KeyOf(std::int64_t row) const;  // within its table, where a RowWindow read it; 0 if gone

  private:
    std::uint32_t PlaceOf(std::int64_t row) const;

    std::shared_ptr<const RowStore> rows_;
    std::shared_ptr<const std::vector<std::uint32_t>> visible_;  // null: all of them
};

}  // namespace ado
