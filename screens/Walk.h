#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/forms/window/Form.h"

namespace qm {

class frmLedger;
class ucOPtSelective;

// A screen that comes up while no user sits there, and what is done in it.
struct Step {
    std::string Form;
    std::function<void(forms::Form&)> Visit;
};

// Runs `open` with the steps that it leads through, in order. Raises what opening raises and, where a box or
// a screen came that no step foresaw, an error that names it.
void Walk(const std::vector<Step>& steps, const std::function<void()>& open);

// The folder, made where it is not there. Raises 75 "Path/File access error".
std::filesystem::path Made(const std::string& folder);

// The page that a report's screen shows when its OK is pressed.
Step Page(const std::function<void(frmLedger&)>& visit);

// As a user does: all of the list, then OK; the statements of all ledgers; the final results.
void PressOk(ucOPtSelective& list);
void PrintAllLedgers(forms::Form& partyLedger);
void ViewResults(forms::Form& finalResults);

template <class F>
void Open() {
    forms::Default<F>().Show(forms::vbModal);
}

}  // namespace qm
