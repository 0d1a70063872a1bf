#pragma once

#include "platform/forms/Controls.h"
#include "ui_ucAddPanel.h"

namespace qm {

// The bar of seven buttons that gives a master screen its record commands: Add, Update, Delete, Find, Close,
// previous, next. It knows nothing of data: it toggles its buttons and raises one event for each; the screen
// does the work.
class ucAddPanel : public forms::UserControlOf<Ui::ucAddPanel> {
  public:
    explicit ucAddPanel(QWidget* parent);

    // Switches Add, Update, Delete and Find; the other three stay as they are. A screen that stays in add
    // mode after a failed check puts its buttons back with it.
    void SetEnableActButts(bool enabled);

    forms::ControlArray<forms::CommandButton> cmdUC{*this, "cmdUC"};

    forms::Event<> AddRec, UpdRec, DelRec, FindRec, CloseRec, NextRec, PrevRec;

  private:
    void cmdUC_Click(int index);
};

}  // namespace qm
