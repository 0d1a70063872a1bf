#include "desk/SheetPage.h"

#include <QAbstractItemView>
#include <QVBoxLayout>

namespace desk {

SheetPage::SheetPage(Desk& desk, const QString& title, const QString& name, SheetView::Shape shape)
    : Page(desk, title), view_(new SheetView(desk, name, shape)) {
    view_->View().setAccessibleName(title);
    SetFirstFocus(view_);
}

void SheetPage::AddView() {
    AddToHead(view_->Buttons());
    Body().addWidget(view_, 1);
}

}  // namespace desk
