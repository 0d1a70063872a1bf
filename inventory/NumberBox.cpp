#include "inventory/NumberBox.h"

#include "platform/basic/Number.h"

namespace qm {

bool ShowsSaved(const forms::ComboBox& box) {
    return !box.Text().empty() && box.Text() != NewNumber;
}

double NumberIn(const forms::ComboBox& box) {
    return basic::PrefixValue(box.Text());
}

std::string NumberTextIn(const forms::ComboBox& box) {
    return basic::NumberText(NumberIn(box));
}

}  // namespace qm
