#include "reports/frmLedger.h"

#include <algorithm>

#include "core/Masks.h"
#include "core/modGeneral.h"
#include "platform/basic/Format.h"
#include "reports/LedgerStatement.h"
#include "reports/ReportPaper.h"
#include "reports/StockLedger.h"
#include "reports/TrialBalance.h"

namespace qm {
namespace {

struct Heading {
    const char *Title, *Span, *ToDateMask;
};

// The To date of the stock ledger is written unlike the others'. Kept 73.
constexpr Heading Headings[] = {{"Stock Ledger", "7", DateMask},
                                {"Party Ledger", "6", ShortDateMask},
                                {"Trial Balance", "6", ShortDateMask}};

}  // namespace

void frmLedger::Wire() {
    ui().cmdPrint->Click = [this] { cmdPrint_Click(); };
    ui().cmdClose->Click = [this] { cmdClose_Click(); };
}

std::vector<forms::Form::Command> frmLedger::CtrlCommands() {
    return {{'P', [this] { cmdPrint_Click(); }}};
}

void frmLedger::Form_Resize() {
    const auto moveTo = [this](forms::CommandButton& button, double share) {
        button.Move(static_cast<int>(Width() * share), button.Top(), button.Width(), button.Height());
    };
    moveTo(*ui().cmdPrint, 0.4);
    moveTo(*ui().cmdClose, 0.5);
}

// The party ledger comes with the title "Ledger", so it has no heading; "Party Ledger" is kept all the same.
// Kept 73.
void frmLedger::BeginReport(const std::string& title) {
    report_ = "<html><head><title></title></head>";
    Append(
        "<body><table border = '0' width='100%' style = 'font size = 12' cellspacing = '0' cellpadding =0 >");
    const auto* const heading = std::find_if(std::begin(Headings), std::end(Headings),
                                             [&](const Heading& known) { return title == known.Title; });
    if (heading != std::end(Headings)) AppendHeading(title, heading->Span, heading->ToDateMask);
    title_ = title;
    begun_ = report_.size();
}

// The title's cell closes while its paragraph stays open. Kept 72: the text is compared and printed as it is.
void frmLedger::AppendHeading(const std::string& title, const std::string& span, const char* toDateMask) {
    Append("<tr><td width='100%' colspan='" + span + "' height='27'>");
    Append("<p align='center'><font size='5'><b>");
    Append(title);
    Append("</b></font></td>");
    Append("</tr><tr><td width='100%' colspan='" + span + "'>");
    Append("<p align='center'><font size='4'><b>(");
    Append(basic::Format(fromDate_, DateMask));
    Append(" To ");
    Append(basic::Format(toDate_, toDateMask));
    Append(")</b></font></p>");
    Append("<hr></td></tr>");
}

void frmLedger::PartyPrnLed(double& opening, ado::Recordset& rs, const std::string& name) {
    Append(LedgerStatement(name, fromDate_, opening, rs));
}

// All ledgers of the year, whatever was selected.
void frmLedger::PartyTrial(basic::Date) {
    ado::Recordset rs;
    rs.Open(
        "Select * from ledger_master, Ledger_Details  Where ledger_master.Ledger_Id = "
        "Ledger_Details.Ledger_Id  And Fnncl_yr = " +
            shared().FinYear,
        shared().Connection);
    Append(TrialBalance(rs));
}

void frmLedger::ItemPrnLed(double& opening, ado::Recordset& rs, const std::string& name,
                           std::int16_t itemId) {
    Append(StockLedger(itemId, name, fromDate_, opening, rs));
}

void frmLedger::cmdPrint_Click() {
    ui().ucHTMLBox->PrintReport(true);
}

// The report is read-only in the end: showing it sets the switch that Editable let go of.
void frmLedger::EndReport() {
    const bool blank = report_.size() == begun_;
    Append("</table></body></html>");
    ui().ucHTMLBox->Editable(false);
    ui().ucHTMLBox->SetHTMl(report_);
    forms::DHTMLEdit& view = *ui().ucHTMLBox->ui().dhtEdit;
    view.SetPaper(PaperOf());
    view.SetBlankHint(blank ? "Nothing to show for this period" : "");
}

// A trial balance holds all up to its date; the from date in its heading is another report's. Kept 70.
forms::html::Paper frmLedger::PaperOf() const {
    return ReportPaper(title_, title_ == "Trial Balance" ? Period(toDate_) : Period(fromDate_, toDate_));
}

}  // namespace qm
