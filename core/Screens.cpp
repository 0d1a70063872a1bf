#include "core/Screens.h"

#include <cstdlib>
#include <sstream>
#include <string>

#include <malloc.h>

#include "core/SiblingLibrary.h"
#include "core/modGeneral.h"
#include "platform/ado/Maintenance.h"

namespace qm {
namespace {

SiblingLibrary& Library() {
    static SiblingLibrary library("libqmscreens.so", "The screens");
    return library;
}

bool Named(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

}  // namespace

bool DisplayIsThere() {
    return Named("DISPLAY") || Named("WAYLAND_DISPLAY");
}

bool LoadScreens() {
    auto* attach = Library().Find<void()>("qmAttachScreens");
    if (attach == nullptr) return false;
    attach();
    return true;
}

void ShowMainMenu() {
    auto* show = Library().Need<void()>("qmShowMainMenu");
    LoadScreens();
    show();
}

void OpenScreen(const std::string& form, const std::string& record) {
    auto* open = Library().Need<void(const char*, const char*)>("qmOpenScreen");
    LoadScreens();
    open(form.c_str(), record.c_str());
}

void CopyVoucher(std::int32_t number) {
    auto* copy = Library().Need<void(std::int32_t)>("qmCopyVoucher");
    LoadScreens();
    copy(number);
}

void ForgetPages() {
    ado::ForgetPages(Conn());
    malloc_trim(0);  // to the system
}

void WritePictures(const std::string& folder) {
    Library().Need<void(const char*)>("qmWritePictures")(folder.c_str());
}

void WriteReports(const std::string& folder) {
    Library().Need<void(const char*)>("qmWriteReports")(folder.c_str());
}

void WritePage(const std::string& html, const PageNames& names, bool isWide, const std::string& file,
               const Progress& progress) {
    using Write = void(const char*, const char*, const char*, bool, const char*, const Progress*);
    Library().Need<Write>("qmWritePage")(html.c_str(), names.Title.c_str(), names.Source.c_str(), isWide,
                                         file.c_str(), &progress);
}

void PrintPage(const std::string& html, const PageNames& names, bool isWide) {
    auto* print = Library().Need<void(const char*, const char*, const char*, bool)>("qmPrintPage");
    LoadScreens();
    print(html.c_str(), names.Title.c_str(), names.Source.c_str(), isWide);
}

std::vector<std::string> ScreenNames() {
    auto* names = Library().Find<const char*()>("qmScreenNames");
    std::vector<std::string> list;
    std::istringstream lines(names == nullptr ? "" : names());
    for (std::string line; std::getline(lines, line);) list.push_back(line);
    return list;
}

}  // namespace qm
