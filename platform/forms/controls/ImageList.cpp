#include "platform/forms/controls/ImageList.h"

#include "platform/forms/controls/Text.h"
#include "platform/forms/controls/TreeView.h"

namespace forms {

void ImageList::Add(const std::string& key, const std::string& image) {
    icons_.insert(ToQt(key), QIcon(ToQt(image)));
}

QIcon ImageList::Icon(const std::string& key) const {
    const auto found = icons_.find(ToQt(key));
    if (found == icons_.end()) throw basic::Error(ElementNotFound, "Element not found", "forms.ImageList");
    return *found;
}

}  // namespace forms
