#include "platform/com/Registration.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

#include <dlfcn.h>
#include <unistd.h>

#include "platform/basic/Error.h"
#include "platform/basic/Text.h"
#include "platform/com/Guid.h"

namespace com {
namespace {

namespace fs = std::filesystem;

constexpr const char* Extension = ".class";

[[noreturn]] void Refuse(const std::string& text) {
    throw basic::Error(SELFREG_E_CLASS, text, "com.Registration");
}

fs::path FileOf(const std::string& progId) {
    return ClassesFolder() / (progId + Extension);
}

// Lines of the form Key=Value; lines that it does not know are left for later versions. Nothing for a file
// that is no registration.
std::optional<Registration> Read(const fs::path& file) {
    std::ifstream in(file);
    Registration read;
    std::optional<CLSID> clsid;
    for (std::string line; std::getline(in, line);) {
        const auto equals = line.find('=');
        if (equals == std::string::npos) continue;
        const std::string key = line.substr(0, equals), value = line.substr(equals + 1);
        if (key == "ProgID") read.ProgId = value;
        if (key == "CLSID") clsid = ReadGuid(value);
        if (key == "Library") read.Library = value;
    }
    if (!clsid || read.ProgId.empty() || read.Library.empty()) return std::nullopt;
    read.Clsid = *clsid;
    return read;
}

bool Bears(const Registration& registration, std::string_view className) {
    return basic::EqualText(registration.ProgId, className) ||
           basic::EqualText(GuidText(registration.Clsid), className);
}

fs::path FolderNamed(const char* variable) {
    const char* value = std::getenv(variable);
    const fs::path folder = value == nullptr ? "" : value;
    return folder.is_absolute() ? folder : fs::path();
}

// Where a class may be registered, the user's own folder first, then the machine's, where packages put
// theirs.
std::vector<fs::path> SearchedFolders() {
    std::vector<fs::path> folders{ClassesFolder()};
    const char* const shared = std::getenv("XDG_DATA_DIRS");
    std::istringstream machine(shared == nullptr || *shared == '\0' ? "/usr/local/share:/usr/share" : shared);
    for (std::string folder; std::getline(machine, folder, ':');)
        if (fs::path(folder).is_absolute()) folders.push_back(fs::path(folder) / "qmclasses");
    return folders;
}

std::optional<Registration> FindIn(const fs::path& folder, std::string_view className) {
    std::error_code failed;
    for (const auto& entry : fs::directory_iterator(folder, failed)) {
        if (entry.path().extension() != Extension) continue;
        auto registration = Read(entry.path());
        if (registration && Bears(*registration, className)) return registration;
    }
    return std::nullopt;
}

}  // namespace

fs::path ClassesFolder() {
    if (const fs::path data = FolderNamed("XDG_DATA_HOME"); !data.empty()) return data / "qmclasses";
    const fs::path home = FolderNamed("HOME");
    if (home.empty()) Refuse("There is no data folder: neither XDG_DATA_HOME nor HOME names one");
    return home / ".local/share/qmclasses";
}

void Write(const Registration& registration) {
    const fs::path file = FileOf(registration.ProgId);
    const fs::path fresh = file.string() + "." + std::to_string(getpid());
    std::error_code failed;
    fs::create_directories(file.parent_path(), failed);
    std::ofstream out(fresh);
    out << "ProgID=" << registration.ProgId << "\nCLSID=" << GuidText(registration.Clsid)
        << "\nLibrary=" << registration.Library.string() << "\n";
    out.close();
    if (out) fs::rename(fresh, file, failed);
    if (!out || failed) Refuse("The registration cannot be written to " + file.string());
}

void Remove(const std::string& progId) {
    std::error_code failed;
    fs::remove(FileOf(progId), failed);
    if (failed) Refuse("The registration cannot be removed: " + failed.message());
}

std::optional<Registration> Find(std::string_view className) {
    for (const fs::path& folder : SearchedFolders())
        if (auto registration = FindIn(folder, className)) return registration;
    return std::nullopt;
}

fs::path ThisLibrary() {
    Dl_info self{};
    if (dladdr(reinterpret_cast<const void*>(&ThisLibrary), &self) == 0 || self.dli_fname == nullptr)
        Refuse("The library's own file is not known");
    return fs::absolute(self.dli_fname);
}

}  // namespace com
