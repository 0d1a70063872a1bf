#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/forms/Controls.h"
#include "platform/forms/grid/VSFlexGrid.h"
#include "ui_frmItemList.h"

namespace qm {

// The picker of the stock screens: the user ticks items, and the screen takes what was ticked as three lists
// that stand in step. Each list can be read once; a second reading gives none, and so does the first where
// the form was closed without OK.
class frmItemList : public forms::FormOf<Ui::frmItemList> {
  public:
    template <class T>
    using Collection = std::optional<std::vector<T>>;

    void Load();  // shows all items and waits; a failing statement is raised
    Collection<std::string> SelItems();
    Collection<double> SelItemIds();
    Collection<double> SelItemPrice();  // unit rates; 0 where the item has none

  protected:
    void Wire() override;

  private:
    void PrepareGrid();
    void FillGrid();
    void cmbSearchList_Click();
    void txtSearchText_Change();
    static void vsItems_BeforeEdit(int col, bool& cancel);
    void vsItems_MouseMove();
    void cmdOK_Click();

    Collection<std::string> names_;
    Collection<double> ids_;
    Collection<double> prices_;
};

}  // namespace qm
