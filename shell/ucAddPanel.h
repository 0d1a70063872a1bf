#pragma once

#include "platform/forms/Controls.h"
#include "ui_ucAddPanel.h"

namespace qm {

// What a master screen does at the buttons of its panel, which it names ucAddPanel1.
class MasterScreen {
  public:
    virtual void ucAddPanel1_AddRec() = 0;
    virtual void ucAddPanel1_UpdRec() = 0;
    virtual void ucAddPanel1_DelRec() = 0;
    virtual void ucAddPanel1_FindRec() = 0;
    virtual void ucAddPanel1_CloseRec() = 0;
    virtual void ucAddPanel1_NextRec() = 0;
    virtual void ucAddPanel1_PrevRec() = 0;

  protected:
    ~MasterScreen() = default;
};

// The bar of seven buttons that gives a master screen its record commands: Add, Update, Delete, Find, Close,
// previous, next. It knows nothing of data: it toggles its buttons and raises one event for each; the screen
// does the work.
class ucAddPanel : public forms::UserControlOf<Ui::ucAddPanel> {
  public:
    explicit ucAddPanel(QWidget* parent);

    void Serve(MasterScreen& screen);  // each event goes to its routine from now on

    // Switches Add, Update, Delete and Find; the other three stay as they are. A screen that stays in add
    // mode after a failed check puts its buttons back with it.
    void SetEnableActButts(bool enabled);

    forms::ControlArray<forms::CommandButton> cmdUC{*this, "cmdUC"};

    forms::Event<> AddRec, UpdRec, DelRec, FindRec, CloseRec, NextRec, PrevRec;

  private:
    void cmdUC_Click(int index);
};

}  // namespace qm
