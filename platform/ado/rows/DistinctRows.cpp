#include "platform/ado/rows/DistinctRows.h"

#include <bit>
#include <utility>

#include "platform/basic/Text.h"

namespace ado {
namespace {

// Marks that no number's bits bear: the store keeps no "not a number".
constexpr std::uint64_t nullPart = ~std::uint64_t{0};
constexpr std::uint64_t textMark = std::uint64_t{0xfff4} << 48;

}  // namespace

bool DistinctRows::IsNew(std::size_t row) {
    if (count_ * 2 >= slots_.size()) Grow();
    const std::uint64_t hash = Hash(row);
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    for (; slots_[at].taken; at = (at + 1) & mask)
        if (slots_[at].hash == hash && Alike(slots_[at].row, row)) return false;
    slots_[at] = {hash, row, true};
    ++count_;
    return true;
}

std::uint64_t DistinctRows::Part(const Column& column, std::size_t row) {
    const Cell cell = column.At(row);
    if (cell.kind == CellKind::Null) return nullPart;
    if (cell.kind == CellKind::Text) return textMark | FoldedText(cell.text);
    return std::bit_cast<std::uint64_t>(cell.Number() + 0.0);  // a minus zero is a zero
}

std::uint64_t DistinctRows::FoldedText(TextPool::Id id) {
    if (id >= foldedOf_.size()) foldedOf_.resize(pool_.Count(), TextPool::none);
    if (foldedOf_[id] == TextPool::none) foldedOf_[id] = folded_.Intern(basic::FoldCase(pool_.At(id)));
    return foldedOf_[id];
}

std::uint64_t DistinctRows::Hash(std::size_t row) {
    std::uint64_t hash = 0;
    for (const Column& column : columns_) {
        hash = (hash ^ Part(column, row)) * 0x9e3779b97f4a7c15;
        hash ^= hash >> 29;
    }
    return hash;
}

bool DistinctRows::Alike(std::size_t a, std::size_t b) {
    for (const Column& column : columns_)
        if (Part(column, a) != Part(column, b)) return false;
    return true;
}

void DistinctRows::Grow() {
    std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots_.empty() ? 64 : slots_.size() * 4));
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (!slot.taken) continue;
        std::size_t at = slot.hash & mask;
        while (slots_[at].taken) at = (at + 1) & mask;
        slots_[at] = slot;
    }
}

}  // namespace ado
