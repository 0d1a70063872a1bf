#include "screens/ReportFiles.h"

#include <fstream>

#include "reports/frmItemLedger.h"
#include "reports/frmLedger.h"
#include "reports/frmPartyLedger.h"
#include "reports/frmTPL.h"
#include "screens/Walk.h"

namespace qm {
namespace {

namespace fs = std::filesystem;

void WriteReport(ucHTMLBox& box, const fs::path& folder, const std::string& name) {
    box.ui().dhtEdit->WritePdf(folder / (name + ".pdf"));
    std::ofstream(folder / (name + ".txt"), std::ios::binary) << box.ui().dhtEdit->SelectedText() << '\n';
}

void PrintTrialBalance(forms::Form& form) {
    auto& ui = dynamic_cast<frmPartyLedger&>(form).ui();
    ui.optSumm->SetValue(true);
    PressOk(*ui.ucPartyLedger);
}

void PrintAllItems(forms::Form& form) {
    PressOk(*dynamic_cast<frmItemLedger&>(form).ui().ucItemLedger);
}

}  // namespace

// The ledgers first: the trial balance's heading shows their from date.
void WriteAllReports(const std::string& folder) {
    const fs::path to = Made(folder);
    const auto page = [&](const char* name) {
        return Page([&to, name](frmLedger& form) { WriteReport(*form.ui().ucHTMLBox, to, name); });
    };
    Walk({{"frmPartyLedger", PrintAllLedgers}, page("Ledger")}, Open<frmPartyLedger>);
    Walk({{"frmPartyLedger", PrintTrialBalance}, page("Trial Balance")}, Open<frmPartyLedger>);
    Walk({{"frmItemLedger", PrintAllItems}, page("Stock Ledger")}, Open<frmItemLedger>);
    const auto results = [&](forms::Form& form) {
        ViewResults(form);
        WriteReport(*dynamic_cast<frmTPL&>(form).ui().ucHTMLBox, to, "Final Results");
    };
    Walk({{"frmTPL", results}}, Open<frmTPL>);
}

}  // namespace qm
