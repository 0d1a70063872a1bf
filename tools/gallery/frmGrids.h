#pragma once

#include "platform/forms/Controls.h"
#include "platform/forms/controls/ImageList.h"
#include "ui_frmGrids.h"

// The grids, the list view and the tree, filled as the screens fill them, each event written to a list.
class frmGrids : public forms::FormOf<Ui::frmGrids> {
  public:
    bool WritePicture(const std::string& path);

  private:
    void Wire() override;
    void Form_Load() override;

    void Log(const std::string& what);
    void LogEvents(forms::VSFlexGrid& grid);
    void FillVoucher();
    void FillItems();
    void FillSearch(const std::string& typed);
    void FillGroups();
    void FillDayBook();
    void vsVoucher_StartEdit(int row, int col, bool& cancel);
    void vsCombo_AfterEdit();

    forms::VSFlexGrid* vsCombo_ = nullptr;
    forms::ImageList imgList_;
};
