#pragma once

#include <string>

#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "platform/forms/grid/MSFlexGrid.h"
#include "ui_frmSearchAndLookUp.h"

namespace qm {

// The picker of the master screens: runs a query into a grid, narrows it as the user types, and leaves the
// first two columns of the chosen row in SearchResultKey and SearchResultName (modSearch). The caller sets
// BaseQuery, SearchLikePrefix and the caption of mylbl, and shows it modally. A choice hides the window, so
// what was typed stands there the next time, over the whole list again.
class frmSearchAndLookUp : public forms::FormOf<Ui::frmSearchAndLookUp> {
  public:
    std::string BaseQuery;  // its first two columns are the key and the text to hand back

    // Runs a query into the grid. A query that fails leaves the grid as it stands, and nobody hears of it.
    // Kept 84.
    void Initialize(const std::string& query);
    void LoadRecordsetIntoGrid(ado::Recordset& rows, forms::MSFlexGrid& grid, bool autosize, bool highlight);
    void SetGridColumnWidth();  // each column as wide as its longest text
    void HighlightGridRow(int row);

  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Escape() override;

  private:
    void ShowCount();
    void txtsearch_Change();
    void txtsearch_KeyDown(int& keyCode, int shift);
    void cmdget_Click();
    void grd_DblClick();
    void chkAutosizeColumns_Click() { SetGridColumnWidth(); }
    void chkHighlightFirstRow_Click() { HighlightGridRow(1); }
};

}  // namespace qm
