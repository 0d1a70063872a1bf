#include "platform/ado/rows/TextPool.h"

#include <functional>
#include <limits>
#include <utility>

#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"

namespace ado {

TextPool::Id TextPool::Intern(std::string_view text) {
    if (!filling_) return Append(text);
    if (interned_ * 2 >= slots_.size()) Grow();
    const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>{}(text));
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    for (; slots_[at].id != none; at = (at + 1) & mask)
        if (slots_[at].hash == hash && At(slots_[at].id) == text) return slots_[at].id;
    slots_[at] = {hash, Append(text)};
    ++interned_;
    return slots_[at].id;
}

TextPool::Id TextPool::Append(std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - bytes_.size())
        throw basic::Error(error::Unspecified, "The rows hold more text than a record set can take.",
                           "ado.Recordset");
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    starts_.push_back(static_cast<std::uint32_t>(bytes_.size()));
    return static_cast<Id>(starts_.size() - 2);
}

std::string_view TextPool::At(Id id) const {
    return {bytes_.data() + starts_[id], starts_[id + 1] - starts_[id]};
}

void TextPool::EndFill() {
    filling_ = false;
    slots_ = {};
    Trim(bytes_);
    Trim(starts_);
}

std::size_t TextPool::Bytes() const {
    return bytes_.capacity() + starts_.capacity() * sizeof(std::uint32_t) + slots_.capacity() * sizeof(Slot);
}

void TextPool::Grow() {
    std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots_.empty() ? 64 : slots_.size() * 4));
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (slot.id == none) continue;
        std::size_t at = slot.hash & mask;
        while (slots_[at].id != none) at = (at + 1) & mask;
        slots_[at] = slot;
    }
}

}  // namespace ado
