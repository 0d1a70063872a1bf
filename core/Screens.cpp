#include "core/Screens.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>

#include <dlfcn.h>

#include "core/modGeneral.h"

namespace qm {
namespace {

constexpr std::int32_t CannotLoad = 48;  // "Error in loading DLL", the classic number

std::string ScreensPath() {
    Dl_info self{};
    if (dladdr(reinterpret_cast<const void*>(&LoadScreens), &self) == 0 || self.dli_fname == nullptr)
        return {};
    return (std::filesystem::absolute(self.dli_fname).parent_path() / "libqmscreens.so").string();
}

// Kept loaded to the end of the process: the toolkit does not survive being unloaded.
void* Library() {
    static void* const library = dlopen(ScreensPath().c_str(), RTLD_NOW | RTLD_LOCAL);
    return library;
}

template <class Routine>
Routine* Find(const char* name) {
    return Library() == nullptr ? nullptr : reinterpret_cast<Routine*>(dlsym(Library(), name));
}

template <class Routine>
Routine* Need(const char* name) {
    auto* routine = Find<Routine>(name);
    if (routine == nullptr)
        throw basic::Error(
            CannotLoad,
            "The screens cannot be loaded: libqmscreens.so is missing beside libqmcls.so, or a "
            "package that it needs is not installed",
            "core.Screens");
    return routine;
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
    auto* attach = Find<void()>("qmAttachScreens");
    if (attach == nullptr) return false;
    attach();
    return true;
}

void ShowMainMenu() {
    auto* show = Need<void()>("qmShowMainMenu");
    LoadScreens();
    show();
}

void OpenScreen(const std::string& form) {
    auto* open = Need<void(const char*)>("qmOpenScreen");
    LoadScreens();
    open(form.c_str());
}

void WritePictures(const std::string& folder) {
    Need<void(const char*)>("qmWritePictures")(folder.c_str());
}

void WriteReports(const std::string& folder) {
    Need<void(const char*)>("qmWriteReports")(folder.c_str());
}

void WritePage(const std::string& html, const PageNames& names, bool isWide, const std::string& file) {
    Need<void(const char*, const char*, const char*, bool, const char*)>("qmWritePage")(
        html.c_str(), names.Title.c_str(), names.Source.c_str(), isWide, file.c_str());
}

std::vector<std::string> ScreenNames() {
    auto* names = Find<const char*()>("qmScreenNames");
    std::vector<std::string> list;
    std::istringstream lines(names == nullptr ? "" : names());
    for (std::string line; std::getline(lines, line);) list.push_back(line);
    return list;
}

}  // namespace qm
