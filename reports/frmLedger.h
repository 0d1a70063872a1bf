#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "platform/forms/html/Paper.h"
#include "ui_frmLedger.h"

namespace qm {

// The page on which the party ledger, the trial balance and the stock ledger are shown and printed. One
// report stands at a time: set the dates, BeginReport, one generator for each ledger or item, EndReport, show
// modally.
class frmLedger : public forms::FormOf<Ui::frmLedger> {
  public:
    // The dates live as long as the form's object: one that a report does not set stays from the report
    // before, and the trial balance's heading shows it. Kept 70.
    void SetFromDate(basic::Date date) { fromDate_ = date; }
    void SetToDate(basic::Date date) { toDate_ = date; }

    // Begins the text anew. "Stock Ledger", "Party Ledger" and "Trial Balance", to the letter, get a heading
    // with the dates; any other title gets none.
    void BeginReport(const std::string& title);
    // Ends the text and shows it.
    void EndReport();

    // Appends one ledger's statement; nothing for a ledger without rows. `opening` comes in as the signed
    // opening balance, debit positive, and leaves as the closing one.
    void PartyPrnLed(double& opening, ado::Recordset& rs, const std::string& name);
    // Appends the trial balance of the year's ledgers. The date is not looked at.
    void PartyTrial(basic::Date date);
    // Appends one item's movements; nothing for an item without rows. `opening` comes in as the opening
    // quantity and leaves as the closing one.
    void ItemPrnLed(double& opening, ado::Recordset& rs, const std::string& name, std::int16_t itemId);

    // As it was built, and as it is handed to the view: until the next BeginReport.
    const std::string& ReportText() const { return report_; }

  protected:
    void Wire() override;
    void Form_Resize() override;
    std::vector<Command> CtrlCommands() override;

  private:
    void cmdPrint_Click();
    void cmdClose_Click() { Unload(); }

    void Append(const std::string& html) { report_ += html; }
    void AppendHeading(const std::string& title, const std::string& span, const char* toDateMask);

    forms::html::Paper PaperOf() const;

    std::string report_, title_;
    std::size_t begun_ = 0;  // the report's length where the generators go on
    basic::Date fromDate_, toDate_;
};

}  // namespace qm
