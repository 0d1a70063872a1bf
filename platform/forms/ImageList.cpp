#include "platform/forms/ImageList.h"

#include <QPainter>

#include "platform/forms/Text.h"
#include "platform/forms/TreeView.h"

namespace forms {
namespace {

// The same in white: the picture's own lines would be dark on a selected row's dark ground.
void AddSelected(QIcon& icon) {
    for (const int side : {16, 32, 64}) {
        QPixmap light = icon.pixmap(QSize(side, side), 1);
        QPainter painter(&light);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(light.rect(), Qt::white);
        painter.end();
        icon.addPixmap(light, QIcon::Selected);
    }
}

}  // namespace

void ImageList::Add(const std::string& key, const std::string& image) {
    QIcon icon(ToQt(image));
    AddSelected(icon);
    icons_.insert(ToQt(key), icon);
}

QIcon ImageList::Icon(const std::string& key) const {
    const auto found = icons_.find(ToQt(key));
    if (found == icons_.end()) throw basic::Error(ElementNotFound, "Element not found", "forms.ImageList");
    return *found;
}

}  // namespace forms
