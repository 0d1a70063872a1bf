#include "reports/frmTPL.h"

#include "core/DBCode.h"
#include "core/modGeneral.h"
#include "platform/basic/Clock.h"
#include "platform/forms/window/Application.h"
#include "reports/FinalResults.h"
#include "reports/RebuildProgress.h"
#include "reports/ReportPaper.h"

namespace qm {

void frmTPL::Wire() {
    ui().cmdView->Click = [this] { cmdView_Click(); };
    ui().cmdPrint->Click = [this] { cmdPrint_Click(); };
    ui().cmdClose->Click = [this] { cmdClose_Click(); };
}

void frmTPL::Form_Load() {
    ui().dtpDate->SetValue(basic::Clock::Today());
    ui().ucHTMLBox->Editable(false);
}

std::vector<forms::Form::Command> frmTPL::CtrlCommands() {
    const auto print = [this] {
        if (ui().cmdPrint->isEnabled()) cmdPrint_Click();
    };
    return {{'P', print}};
}

// The totals of the ledgers stand as of the date until the screen closes. Kept 69.
void frmTPL::cmdView_Click() {
    const basic::Date upto = ui().dtpDate->Value();
    const forms::WaitPointer wait;
    RebuildWithProgress(basic::ToLong(DateNumber(upto)), BeforeRebuild::ZeroTotals);
    FinalResults::BuildResults();
    ui().ucHTMLBox->SetHTMl(FinalResults(upto).PrintResults());
    ui().ucHTMLBox->ui().dhtEdit->SetPaper(ReportPaper(Caption(), Period(upto)));
    ui().cmdPrint->SetEnabled(true);
    ui().cmdView->SetEnabled(false);
}

void frmTPL::cmdPrint_Click() {
    ui().ucHTMLBox->PrintReport(true);
}

void frmTPL::Form_Unload() {
    Conn().Execute("Delete * from tblsystpl");
    RebuildWithProgress();
}

}  // namespace qm
