#pragma once

#include <cstdint>
#include <string>

#include "core/ItemRows.h"
#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "shell/ucAddPanel.h"
#include "ui_ItemMaster.h"

namespace qm {

// Keeps the items of the current year: browse, add, update. Its routines run in skip-on-error mode: what
// fails is passed over. The issued and received quantities are not fields of this screen, so no change here
// touches them; the balance is what the user types. Kept 50.
class ItemMaster : public forms::FormOf<Ui::ItemMaster>, private MasterScreen {
  public:
    void ModeNew();  // empty, unlocked, with the next number; nothing in this system calls it
    void LoadItem(std::int32_t item);    // shows it as the look-up does, modally; an empty screen without it
    bool IsNew() const { return new_; }  // from ModeNew to the next insert

  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Unload() override;

  private:
    void ucAddPanel1_AddRec() override;
    void ucAddPanel1_UpdRec() override;
    void ucAddPanel1_DelRec() override;
    void ucAddPanel1_FindRec() override;
    void ucAddPanel1_CloseRec() override { Unload(); }
    void ucAddPanel1_NextRec() override;
    void ucAddPanel1_PrevRec() override;

    void ShowNextNumber();
    void ShowItem(const std::string& id);
    void ShowRecord(ado::Recordset& item);
    ItemEntry Values();

    ado::RecordsetPtr items_;  // what Next and Previous walk; open while the form is loaded
    bool new_ = false;
};

}  // namespace qm
