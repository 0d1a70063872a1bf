#include "tools/gallery/frmGallery.h"

#include <chrono>
#include <thread>

#include "platform/basic/Error.h"
#include "platform/forms/window/MessageBox.h"
#include "platform/forms/window/Progress.h"

using namespace forms;

void frmGallery::Log(const std::string& what) {
    ui().lstLog->AddItem(what);
    ui().lstLog->scrollToBottom();
}

void frmGallery::WireFocus(Control& control) {
    const std::string name = control.Name();
    control.GotFocus = [this, name] { Log(name + "_GotFocus"); };
    control.LostFocus = [this, name] { Log(name + "_LostFocus"); };
    control.Validate = [this, name](bool&) { Log(name + "_Validate"); };
}

void frmGallery::Wire() {
    for (basic::Control* control : Controls()) WireFocus(dynamic_cast<Control&>(*control));
    ui().txtName->Change = [this] { Log("txtName_Change " + ui().txtName->Text()); };
    ui().txtAmount->KeyPress = [this](int& ascii) {
        Log("txtAmount_KeyPress " + std::to_string(ascii));
        if ((ascii < '0' || ascii > '9') && ascii != '.' && ascii != vbKeyBack) ascii = 0;
    };
    ui().txtAmount->Validate = [this](bool& cancel) {
        cancel = ui().txtAmount->Text().empty();
        Log(cancel ? "txtAmount_Validate holds the focus" : "txtAmount_Validate");
    };
    for (ComboBox* combo : {ui().cmbType, ui().cmbNumber}) {
        combo->Change = [this, combo] { Log(combo->Name() + "_Change " + combo->Text()); };
        combo->Click = [this, combo] { Log(combo->Name() + "_Click " + std::to_string(combo->ListIndex())); };
    }
    ui().lstYears->Click = [this] { Log("lstYears_Click " + std::to_string(ui().lstYears->ListIndex())); };
    ui().chkOne->Click = [this] { Log("chkOne_Click " + std::to_string(ui().chkOne->Value())); };
    ui().optCredit->Click = [this] { Log("optCredit_Click"); };
    ui().optDebit->Click = [this] { Log("optDebit_Click"); };
    ui().cmdMessage->Click = [this] { cmdMessage_Click(); };
    ui().cmdError->Click = [] { basic::Raise(basic::error::InvalidNull); };
    ui().cmdWait->Click = [this] { cmdWait_Click(); };
    ui().cmdExit->Click = [this] { Unload(); };
}

void frmGallery::Form_Load() {
    for (const char* type : {"Receipt", "Payment", "Contra", "Journal"}) ui().cmbType->AddItem(type);
    for (int number = 1; number < 40; ++number) ui().cmbNumber->AddItem(std::to_string(number));
    ui().cmbNumber->AddItem("<New>");
    for (int year = 2001; year < 2009; ++year)
        ui().lstYears->AddItem(std::to_string(year) + '-' + std::to_string(year + 1));
    for (const char* ledger : {"Cash", "Sharma & Sons", "State Bank", "Wages"})
        ui().lstLedgers->AddItem(ledger);
    ui().cmbType->SetText("Receipt");
    ui().cmbNumber->SetText("<New>");
    ui().lstYears->SetListIndex(0);
    ui().lstLedgers->SetSelected(1, true);
    ui().lstLedgers->SetSelected(2, true);
}

void frmGallery::Form_KeyDown(int keyCode, int) {
    Log(std::string("Form_KeyDown Ctrl+") + static_cast<char>(keyCode));
    if (keyCode == 'X') Unload();
}

void frmGallery::cmdMessage_Click() {
    const int answer = ShowMessage("Delete Voucher\r\n\r\nAre you sure ?", 68, "");
    Log("answer " + std::to_string(answer));
}

void frmGallery::cmdWait_Click() {
    Progress progress("Rebuilding the totals", 100, Progress::Cancel::Offered);
    for (int done = 0; progress.Step(done) && done < 100; ++done)
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
}

bool frmGallery::WritePicture(const std::string& path) {
    Show();
    ui().txtName->SetFocus();
    const bool written = Window()->grab().save(ToQt(path));
    Unload();
    return written;
}
