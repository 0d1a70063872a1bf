#include "shell/ucAddPanel.h"

namespace qm {
namespace {

enum Button { Add, Update, Delete, Find, Close, Previous, Next, Buttons };

}  // namespace

ucAddPanel::ucAddPanel(QWidget* parent)
    : UserControlOf(parent),
      AddRec(this),
      UpdRec(this),
      DelRec(this),
      FindRec(this),
      CloseRec(this),
      NextRec(this),
      PrevRec(this) {
    for (int index = 0; index < Buttons; ++index) cmdUC(index).Click = [this, index] { cmdUC_Click(index); };
}

void ucAddPanel::Serve(MasterScreen& screen) {
    AddRec = [&screen] { screen.ucAddPanel1_AddRec(); };
    UpdRec = [&screen] { screen.ucAddPanel1_UpdRec(); };
    DelRec = [&screen] { screen.ucAddPanel1_DelRec(); };
    FindRec = [&screen] { screen.ucAddPanel1_FindRec(); };
    CloseRec = [&screen] { screen.ucAddPanel1_CloseRec(); };
    NextRec = [&screen] { screen.ucAddPanel1_NextRec(); };
    PrevRec = [&screen] { screen.ucAddPanel1_PrevRec(); };
}

void ucAddPanel::SetEnableActButts(bool enabled) {
    for (const int index : {Add, Update, Delete, Find}) cmdUC(index).SetEnabled(enabled);
}

// The buttons change first, then the screen hears of it. Only Update and Close can be pressed while a new
// record is typed.
void ucAddPanel::cmdUC_Click(int index) {
    const forms::Event<>* const events[Buttons] = {&AddRec,   &UpdRec,  &DelRec, &FindRec,
                                                   &CloseRec, &PrevRec, &NextRec};
    if (index == Add || index == Update) {
        cmdUC(Update).SetEnabled(true);
        for (const int other : {Add, Delete, Find, Previous, Next}) cmdUC(other).SetEnabled(index == Update);
    }
    events[index]->Fire();
}

}  // namespace qm
