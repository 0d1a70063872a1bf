#include "years/frmClosingBal.h"

#include "core/Boxes.h"
#include "core/CountedExecution.h"
#include "core/ErrorModule.h"
#include "core/modGeneral.h"
#include "platform/ado/Constants.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "shell/EntryChecks.h"

namespace qm {
namespace {

constexpr unsigned DimField = 0xF7F6F4;  // of a field that nobody types into

}  // namespace

void frmClosingBal::Load(std::int32_t ledgerId) {
    ledgerId_ = ledgerId;
    optManually_Click();
    Show(forms::vbModal);
}

void frmClosingBal::Wire() {
    ui().optAutomatically->Click = [this] { optAutomatically_Click(); };
    ui().optManually->Click = [this] { optManually_Click(); };
    ui().cmdGetBal->Click = [this] { cmdGetBal_Click(); };
    ui().txtClosingBal->KeyPress = [this](int& keyAscii) { txtClosingBal_KeyPress(keyAscii); };
    ui().txtClosingBal->Validate = [this](bool& cancel) { txtClosingBal_Validate(cancel); };
    ui().cmdSave->Click = [this] { cmdSave_Click(); };
    ui().cmdExit->Click = [this] { cmdExit_Click(); };
}

void frmClosingBal::Form_Load() {
    ui().txtAuto->SetBackColor(DimField);
}

std::vector<forms::Form::Command> frmClosingBal::CtrlCommands() {
    return {
        {'G', [this] { cmdGetBal_Click(); }},
        {'S', [this] { cmdSave_Click(); }},
        {'X', [this] { cmdExit_Click(); }},
    };
}

// The frame around cmdGetBal, which optManually_Click disabled, stays so: the button is reached by Ctrl+G
// only. Kept 87.
void frmClosingBal::optAutomatically_Click() {
    const bool automatic = ui().optAutomatically->Value();
    ui().txtAuto->SetEnabled(automatic);
    ui().cmdGetBal->SetEnabled(automatic);
    ui().fmeManually->SetEnabled(false);
    ui().txtClosingBal->SetEnabled(false);
    if (automatic) ui().txtClosingBal->SetBackColor(ui().txtAuto->BackColor());
}

void frmClosingBal::optManually_Click() {
    const bool manual = ui().optManually->Value();
    ui().fmeManually->SetEnabled(manual);
    ui().txtClosingBal->SetEnabled(manual);
    ui().fmeAutomatically->SetEnabled(false);
    ui().cmdGetBal->SetEnabled(false);
    if (manual) ui().txtClosingBal->SetBackColor(forms::vbWhite);
}

// There is no link to the inventory, so there is never a figure to show.
void frmClosingBal::cmdGetBal_Click() {
    ui().txtAuto->SetText("");
    stockUnavailable_ = true;
}

void frmClosingBal::txtClosingBal_KeyPress(int& keyAscii) {
    KeepFigures(keyAscii, TypedSign::Minus);
}

void frmClosingBal::txtClosingBal_Validate(bool& cancel) {
    cancel = !IsQuantity(ui().txtClosingBal->Text());
}

bool frmClosingBal::ValidateBalance() {
    if (ui().optAutomatically->Value() && basic::Trim(ui().txtAuto->Text()).empty()) {
        Tell("Cannot bring stock balances from inventory\r\n\r\nPlease specify manually");
        optAutomatically_Click();
        if (!stockUnavailable_) ui().cmdGetBal->SetFocus();
        return false;
    }
    if (!ui().optManually->Value()) return true;
    return IsFilled(*ui().txtClosingBal, "Please specify the Stock Closing Balance");
}

// A figure in txtAuto would not be taken: an automatic save would write 0. Success shows nothing. Kept 87.
void frmClosingBal::cmdSave_Click() {
    if (!ValidateBalance()) return;
    try {
        double value = 0;
        if (ui().optManually->Value()) value = basic::PrefixValue(ui().txtClosingBal->Text());
        Conn().BeginTrans();
        ExecuteCounted("Update Ledger_Details Set Closing_Bal = " + basic::NumberText(value) +
                       " Where Ledger_id = " + std::to_string(ledgerId_) +
                       " And Fnncl_Yr = " + shared().FinYear);
        Conn().CommitTrans();
    } catch (const basic::Error& error) {
        RollbackOpen();
        LogError(Name(), error);
    }
}

}  // namespace qm
