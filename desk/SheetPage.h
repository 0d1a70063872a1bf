#pragma once

#include "desk/Page.h"
#include "desk/SheetView.h"

namespace desk {

// A page that is one table or tree. It says how its sheet is its own before it asks for it.
class SheetPage : public Page {
  public:
    // The choice of columns is kept under `name`.
    SheetPage(Desk& desk, const QString& title, const QString& name,
              SheetView::Shape shape = SheetView::Shape::Table);
    void Refresh() override { view_->Refresh(); }

  protected:
    SheetView& View() const { return *view_; }
    void AddView();  // below what the page has by now, its buttons behind those in the head

  private:
    SheetView* view_;
};

}  // namespace desk
