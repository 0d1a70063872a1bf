#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/ado/rows/Column.h"
#include "platform/ado/rows/TextPool.h"

namespace ado {

// The rows of a Select Distinct while they are read: knows a row that is alike an earlier one, texts without
// regard to case.
class DistinctRows {
  public:
    DistinctRows(const std::vector<Column>& columns, const TextPool& pool) : columns_(columns), pool_(pool) {}
    bool IsNew(std::size_t row);  // of the last row; the earlier ones have been asked about in order

  private:
    std::uint64_t Part(const Column& column, std::size_t row);
    std::uint64_t FoldedText(TextPool::Id id);
    std::uint64_t Hash(std::size_t row);
    bool Alike(std::size_t a, std::size_t b);
    void Grow();

    struct Slot {
        std::uint64_t hash = 0;
        std::size_t row = 0;
        bool taken = false;
    };
    const std::vector<Column>& columns_;
    const TextPool& pool_;
    TextPool folded_;
    std::vector<TextPool::Id> foldedOf_;  // by the text's number; TextPool::none: not folded yet
    std::vector<Slot> slots_;
    std::size_t count_ = 0;
};

}  // namespace ado
