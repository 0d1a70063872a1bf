#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "ui_frmDayBook.h"

namespace qm {

// The list of the current year's voucher rows: today's at first, or those of a filter. It is drawn from its
// record set as that stands; only Refresh, Add, Delete and a filter read the books anew. The door to the
// voucher screen, and to the deletion of a whole voucher.
class frmDayBook : public forms::FormOf<Ui::frmDayBook> {
  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    void Form_Resize() override;
    std::vector<Command> CtrlCommands() override;

  private:
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdFilter_Click();
    void cmdRefresh_Click();
    void cmdClose_Click() { Unload(); }
    void cmdOk_Click();
    void cmdClear_Click();
    void lvwDayBook_ColumnClick(int index);
    void cboFilterFld_Click();
    void dtpDateFrom_Validate(bool& cancel);
    void dtpDateUpTo_Validate(bool& cancel);
    void txtDtAmt_Validate(bool& cancel);

    void MakeColumns();
    void FillDayBook();
    void OpenDayBook(const std::string& sql);
    void ShowToday();
    void Reopen(const std::string& rest);
    void FillLedgerNames();
    bool FromIsAfterTo();
    basic::Date FirstOfApril(int yearsOn) const;

    ado::Recordset DayBookRecordset;
    std::string DayBookSql;  // the last statement opened
};

}  // namespace qm
