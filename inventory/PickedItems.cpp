#include "inventory/PickedItems.h"

#include "inventory/frmItemList.h"

namespace qm {

std::vector<PickedItem> PickItems() {
    auto& picker = forms::Default<frmItemList>();
    picker.Load();
    const auto ids = picker.SelItemIds();
    const auto names = picker.SelItems();
    const auto prices = picker.SelItemPrice();
    std::vector<PickedItem> picked;
    for (std::size_t i = 0; ids && i < ids->size(); ++i)
        picked.push_back({names->at(i), ids->at(i), prices->at(i)});
    return picked;
}

}  // namespace qm
