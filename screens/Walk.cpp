#include "screens/Walk.h"

#include "platform/basic/Error.h"
#include "platform/forms/window/Script.h"
#include "reports/frmLedger.h"
#include "reports/frmPartyLedger.h"
#include "reports/frmTPL.h"

namespace qm {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t PathAccess = 75;

}  // namespace

void Walk(const std::vector<Step>& steps, const std::function<void()>& open) {
    std::string fault;
    {
        forms::Script script([&](const std::string& what) { fault += what + '\n'; });
        for (const Step& step : steps) script.Modal(step.Form, step.Visit);
        open();
    }
    if (!fault.empty()) throw basic::Error(basic::error::InvalidCall, fault, "screens.Walk");
}

fs::path Made(const std::string& folder) {
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (!fs::is_directory(folder))
        throw basic::Error(PathAccess, "Path/File access error: " + folder + " cannot be made",
                           "screens.Walk");
    return folder;
}

Step Page(const std::function<void(frmLedger&)>& visit) {
    return {"frmLedger", [visit](forms::Form& form) { visit(dynamic_cast<frmLedger&>(form)); }};
}

void PressOk(ucOPtSelective& list) {
    list.ui().optAll->SetValue(true);
    list.ui().cmdOk->Click.Fire();
}

void PrintAllLedgers(forms::Form& form) {
    auto& ui = dynamic_cast<frmPartyLedger&>(form).ui();
    ui.optDetail->SetValue(true);
    PressOk(*ui.ucPartyLedger);
}

void ViewResults(forms::Form& form) {
    dynamic_cast<frmTPL&>(form).ui().cmdView->Click.Fire();
}

}  // namespace qm
