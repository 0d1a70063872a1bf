#include "platform/forms/controls/ImageList.h"

#include <QPainter>

#include "platform/basic/Error.h"
#include "platform/forms/controls/Text.h"

namespace forms {
namespace {

// On a selected row in white: the picture's own lines would be dark on its dark ground.
QIcon WithSelected(const QIcon& drawn) {
    QIcon icon;
    for (const int side : {16, 32, 48, 64}) {
        QPixmap picture = drawn.pixmap(QSize(side, side), 1);
        icon.addPixmap(picture);
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), Qt::white);
        painter.end();
        icon.addPixmap(picture, QIcon::Selected);
    }
    return icon;
}

}  // namespace

void ImageList::Add(const std::string& key, const std::string& image) {
    icons_.insert(ToQt(key), WithSelected(QIcon(ToQt(image))));
}

QIcon ImageList::Icon(const std::string& key) const {
    const auto found = icons_.find(ToQt(key));
    if (found == icons_.end()) throw basic::Error(ElementNotFound, "Element not found", "forms.ImageList");
    return *found;
}

}  // namespace forms
