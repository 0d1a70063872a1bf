#pragma once

#include <cstdint>
#include <string>

#include "core/LedgerRows.h"
#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "shell/ucAddPanel.h"
#include "ui_Ledger_Master.h"

namespace qm {

// Adds, changes, deletes and pages through ledgers. Debtors and suppliers show a further frame of party
// details.
class Ledger_Master : public forms::FormOf<Ui::Ledger_Master>, private MasterScreen {
  public:
    // Shows the screen modally: on the ledger, or on the first one of the group, or, where there is no such
    // ledger or both are empty, ready for a new one.
    void Load(const std::string& GroupName, const std::string& LedgerName);

    // Shows the screen modally on a ledger of the year, with all of its boxes, as Find does. Raises
    // NoCurrentRecord where the year has none of that number.
    void LoadLedger(std::int32_t ledgerId);

    ado::RecordsetPtr GetResultSet(const std::string& sql);  // runs it through the shared connection

  protected:
    void Wire() override;
    void Form_Unload() override;

  private:
    void FillGroups();
    void OpenForPaging();
    void ShowLedger(const std::string& ledgerId);
    void ShowGroup(const std::string& groupName, const std::string& ledgerName);
    void ShowLedgerRecord(ado::Recordset& record);
    void ShowBalance(ado::Recordset& record);
    void ApplyGroupLayout();
    void ShowStockButton();
    void EnableControls();
    void Page(void (ado::Recordset::*move)(), bool (ado::Recordset::*beyond)() const, const char* atEnd,
              void (ado::Recordset::*back)());

    void ucAddPanel1_AddRec() override;
    void ucAddPanel1_UpdRec() override;
    void ucAddPanel1_DelRec() override { DeleteLedger(); }
    void ucAddPanel1_FindRec() override;
    void ucAddPanel1_CloseRec() override { Unload(); }
    void ucAddPanel1_NextRec() override;
    void ucAddPanel1_PrevRec() override;
    void txtLedgerId_Change() { ShowStockButton(); }
    void Combo1_Click() { ApplyGroupLayout(); }
    void Combo1_Validate();
    void Text2_Validate();
    void cmdStkClBal_Click();

    bool EntryComplete();
    LedgerEntry Entry();
    void AddLedger();
    void UpdateLedger();
    void DeleteLedger();
    bool RetireParty();

    forms::ControlArray<forms::TextBox> Text1{*this, "Text1"};
    bool IsNewLedger = false;           // True while a new ledger is entered
    ado::RecordsetPtr LedgerRecordset;  // behind paging
};

}  // namespace qm
