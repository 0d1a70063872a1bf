#pragma once

#include <cstdint>
#include <string>

namespace qm {

// An order for as long as pictures are drawn: books that hold none lend themselves one, over their first
// supplier and last items, which is undone at the end.
class LentOrder {
  public:
    LentOrder();
    ~LentOrder();
    LentOrder(const LentOrder&) = delete;
    LentOrder& operator=(const LentOrder&) = delete;

  private:
    bool lent_ = false;
};

// The highest number in a field of a table of the current year, 0 if there is none.
std::int32_t Highest(const std::string& field, const std::string& table);

}  // namespace qm
