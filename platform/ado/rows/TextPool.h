#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ado {

// Texts one behind the other in one block, each known by a number. While it is filled, equal texts can share
// one.
class TextPool {
  public:
    using Id = std::uint32_t;
    static constexpr Id none = 0xffffffff;

    Id Intern(std::string_view text);  // the number of the equal text that is there, else a new one
    Id Append(std::string_view text);  // always a new one
    std::string_view At(Id id) const;  // valid until the next Intern or Append
    std::size_t Count() const { return starts_.size() - 1; }

    void EndFill();  // gives back what only Intern needs; it appends from then on
    std::size_t Bytes() const;

  private:
    struct Slot {
        std::uint32_t hash = 0;
        Id id = none;
    };
    void Grow();

    std::vector<char> bytes_;
    std::vector<std::uint32_t> starts_{0};  // of each text, and the end of the last one
    std::vector<Slot> slots_;               // open addressing, at most half full; empty: no interning
    std::size_t interned_ = 0;
    bool filling_ = true;
};

// Gives back room that a vector holds beyond what it needs, unless it is little.
template <class Vector>
void Trim(Vector& vector) {
    if (vector.capacity() - vector.size() > vector.size() / 8) vector.shrink_to_fit();
}

}  // namespace ado
