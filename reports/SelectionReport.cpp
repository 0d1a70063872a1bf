#include "reports/SelectionReport.h"

#include "platform/forms/window/Application.h"
#include "platform/forms/window/Progress.h"

namespace qm {
namespace {

bool PrintEach(const std::string& title, const std::vector<std::int16_t>& keys,
               const std::function<void(const std::string& key)>& print) {
    const forms::WaitPointer wait;
    const std::size_t selected = keys.empty() ? 0 : keys.size() - 1;
    forms::Progress progress(title, static_cast<int>(selected), forms::Progress::Cancel::Offered);
    for (std::size_t i = 0; i < selected; ++i) {
        print(std::to_string(keys[i]));
        if (!progress.Step(static_cast<int>(i) + 1)) return false;
    }
    return true;
}

}  // namespace

void PrintSelected(const std::string& title, const std::vector<std::int16_t>& keys,
                   const std::function<void(const std::string& key)>& print) {
    auto& page = forms::Default<frmLedger>();
    page.BeginReport(title);
    if (!PrintEach(title, keys, print)) return;
    {
        const forms::WaitPointer wait;
        page.EndReport();
    }
    page.Show(forms::vbModal);
}

}  // namespace qm
