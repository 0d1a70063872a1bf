#pragma once

#include <string>
#include <vector>

namespace qm {

// An item that the user ticked in the picker.
struct PickedItem {
    std::string Name;
    double Id = 0;
    double Price = 0;  // the unit rate; 0 where the item has none
};

// Shows the picker and gives what was ticked, in the order of its list; none where it was closed without OK.
std::vector<PickedItem> PickItems();

}  // namespace qm
