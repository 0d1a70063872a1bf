#include "reports/frmPartyLedger.h"

#include "core/DBCode.h"
#include "core/LedgerSide.h"
#include "core/modGeneral.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/forms/window/Application.h"
#include "reports/RebuildProgress.h"
#include "reports/SelectionReport.h"
#include "reports/frmLedger.h"

namespace qm {

void frmPartyLedger::Wire() {
    ui().optDetail->Click = [this] { optDetail_Click(); };
    ui().optSumm->Click = [this] { optSumm_Click(); };
    ui().ucPartyLedger->OkClick = [this] { ucPartyLedger_OkClick(); };
    ui().ucPartyLedger->CancelClick = [this] { ucPartyLedger_CancelClick(); };
    range_.emplace(*ui().dtpDateFrom, *ui().dtpDateUpTo, basic::Clock::Today);
}

void frmPartyLedger::Form_Load() {
    if (ledgers_ && ledgers_->State() != ado::adStateClosed) {
        ledgers_->Requery();
    } else {
        ledgers_ = std::make_shared<ado::Recordset>();
        ledgers_->Open(
            "Select ledger_master.ledger_id,Name,OPening_bal , Bal_type,leddetDrtxnTOT,leddetCrtxnTOT from "
            "ledger_master, Ledger_details Where  ledger_master.ledger_id =Ledger_details.ledger_id And   "
            "Ledger_details.Fnncl_Yr = " +
                shared().FinYear + " Order by Name",
            shared().Connection, ado::adOpenDynamic);
    }
    ui().ucPartyLedger->SetADORecordset(ledgers_);
    ui().ucPartyLedger->SetSelFldName("Name");
    ui().ucPartyLedger->SetSelpkFld("Ledger_id");
    ui().dtpDateFrom->SetValue(DateRange::FirstOfYear());
    ui().dtpDateUpTo->SetValue(basic::Clock::Today());
}

// The focus is what fills the list.
void frmPartyLedger::Form_Activate() {
    ui().ucPartyLedger->SetFocus();
}

void frmPartyLedger::optDetail_Click() {
    ui().dtpDateFrom->SetEnabled(true);
}

void frmPartyLedger::optSumm_Click() {
    ui().dtpDateFrom->SetValue(ui().dtpDateUpTo->Value());
    ui().dtpDateFrom->SetEnabled(false);
    ui().ucPartyLedger->optAll_Click();
}

// Neither option is set at first: that is the trial balance too. Kept 80.
void frmPartyLedger::ucPartyLedger_OkClick() {
    if (ui().optDetail->Value())
        PrintLedger();
    else
        PrintTrialBalance();
}

// One opening amount for all ledgers: one whose own is Null starts where the ledger before it ended. Kept 71.
void frmPartyLedger::PrintLedger() {
    auto& page = forms::Default<frmLedger>();
    page.SetFromDate(ui().dtpDateFrom->Value());
    page.SetToDate(ui().dtpDateUpTo->Value());
    const std::int32_t from = range_->From(), upto = range_->Upto();
    double opening = 0;
    PrintSelected("Ledger", ui().ucPartyLedger->itemSel(), [&](const std::string& ledgerId) {
        OpeningOf(ledgerId, from, opening);
        const ado::RecordsetPtr ledger =
            Conn().Execute("Select Name from ledger_master  Where ledger_id = " + ledgerId);
        ado::Recordset rows;
        rows.Open(" SELECT  *  From tb_Ledger" + shared().FinYear + " WHERE ledgercode = " + ledgerId +
                      " And ledgertxnDate >= " + std::to_string(from) + " And ledgertxnDate <= " +
                      std::to_string(upto) + " Order by  ledgertxnDate, ledgertrntype Desc ",
                  shared().Connection, ado::adOpenDynamic, ado::adLockOptimistic, -1);
        page.PartyPrnLed(opening, rows, basic::ToText((*ledger)["Name"]));
        rows.Close();
    });
    Unload();
}

// Signed, debit positive: the opening balance with all rows before the range. A Null one leaves the amount
// that stands.
void frmPartyLedger::OpeningOf(const std::string& ledgerId, std::int32_t from, double& opening) {
    const ado::RecordsetPtr stored =
        Conn().Execute("Select opening_Bal,Bal_type from Ledger_details  WHERE ledger_Id =" + ledgerId +
                       " And Ledger_details.Fnncl_Yr = " + shared().FinYear);
    const std::string earlier =
        shared().FinYear + " WHERE ledgertxndate < " + std::to_string(from) + " AND ledgerCode = " + ledgerId;
    const ado::RecordsetPtr debits =
        Conn().Execute("SELECT SUM(ledgerdrAmt) As drVal From  tb_ledger" + earlier);
    const ado::RecordsetPtr credits =
        Conn().Execute("SELECT SUM(ledgercrAmt) As crVal From tb_ledger" + earlier);
    const basic::Value balance = (*stored)["opening_Bal"];
    const bool credit = SideOfLetter(basic::TextOrEmpty((*stored)["Bal_type"])) == LedgerSide::Credit;
    if (!balance.IsNull()) opening = basic::ToDouble(balance) * (credit ? -1 : 1);
    opening = opening + basic::NumberOrZero((*debits)["drVal"]) - basic::NumberOrZero((*credits)["crVal"]);
}

// The from date is not set: the heading shows what the report before left, the zero date if there was none.
// The totals stand as of the to date until this screen closes. Kept 69, 70.
void frmPartyLedger::PrintTrialBalance() {
    auto& page = forms::Default<frmLedger>();
    page.SetToDate(ui().dtpDateUpTo->Value());
    page.BeginReport("Trial Balance");
    {
        const forms::WaitPointer wait;
        RebuildWithProgress(range_->Upto());
        page.PartyTrial(ui().dtpDateUpTo->Value());
        page.EndReport();
    }
    page.Show(forms::vbModal);
}

void frmPartyLedger::Form_Unload() {
    RebuildWithProgress();
}

}  // namespace qm
