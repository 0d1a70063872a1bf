// What the class server finds in this library by name (see core/Screens.cpp).
#include <cstdint>
#include <string>

#include "core/MsgBox.h"
#include "core/Screens.h"
#include "platform/basic/Error.h"
#include "platform/forms/html/DHTMLEdit.h"
#include "platform/forms/html/Pages.h"
#include "platform/forms/window/Application.h"
#include "platform/forms/window/Form.h"
#include "platform/forms/window/MessageBox.h"
#include "screens/Pictures.h"
#include "screens/ReportFiles.h"
#include "screens/ScreenTable.h"
#include "shell/frmNewMenu.h"
#include "vouchers/frmVoucher.h"

// Where a display is there, the message boxes are shown from now on.
extern "C" void qmAttachScreens() {
    if (!forms::DisplayAvailable()) return;
    forms::EnsureApplication();
    qm::SetMsgBoxPort(forms::ShowMessage);
}

// Raises where there is no display, before the books are touched.
extern "C" void qmShowMainMenu() {
    forms::EnsureApplication();
    forms::Default<qm::frmNewMenu>().Load(qm::ScreenTable());
}

extern "C" void qmOpenScreen(const char* form, const char* record) {
    const qm::ScreenEntry* const screen = qm::ScreenByForm(form);
    if (!screen)
        throw basic::Error(basic::error::InvalidCall, std::string("There is no screen named ") + form,
                           "shell");
    forms::EnsureApplication();
    if (*record != '\0' && screen->OpenRecord) {
        screen->OpenRecord(record);
    } else {
        screen->Open();
    }
}

extern "C" void qmCopyVoucher(std::int32_t number) {
    forms::EnsureApplication();
    forms::Default<qm::frmVoucher>().LoadCopy(number);
}

// What is drawn for files goes to memory, also where a display is there.
extern "C" void qmWritePictures(const char* folder) {
    forms::DrawToMemory();
    qmAttachScreens();
    qm::WriteAllPictures(folder);
}

extern "C" void qmWriteReports(const char* folder) {
    forms::DrawToMemory();
    qmAttachScreens();
    qm::WriteAllReports(folder);
}

// On any thread once there is an application.
extern "C" void qmWritePage(const char* html, const char* title, const char* source, bool isWide,
                            const char* file, const qm::Progress* progress) {
    forms::DrawToMemory();
    if (!forms::ApplicationStands()) forms::EnsureApplication();
    forms::html::WritePdf(html, {.Title = title, .Source = source, .Period = "", .IsWide = isWide}, file,
                          *progress);
}

extern "C" void qmPrintPage(const char* html, const char* title, const char* source, bool isWide) {
    forms::EnsureApplication();
    forms::DHTMLEdit view(nullptr);
    view.SetDocumentHTML(html);
    view.SetPaper({.Title = title, .Source = source, .Period = "", .IsWide = isWide});
    view.PrintDocument(true);
}

// One form's name a line.
extern "C" const char* qmScreenNames() {
    static const std::string names = [] {
        std::string lines;
        for (const qm::ScreenEntry& screen : qm::ScreenTable()) lines += std::string(screen.Form) + '\n';
        return lines;
    }();
    return names.c_str();
}
