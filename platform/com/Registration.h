#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/com/Automation.h"

// Who may be made by name: one small text file for each class below the user's data folder, in the folder
// "qmclasses". A package for the whole machine puts its file into "qmclasses" below one of $XDG_DATA_DIRS
// (/usr/local/share and /usr/share where none are named); the user's own comes first.
namespace com {

struct Registration {
    std::string ProgId;  // "QmClass.clQm"
    CLSID Clsid{};
    std::filesystem::path Library;  // the library that holds the class
};

// The folder of the files: in $XDG_DATA_HOME, or in ~/.local/share. Raises SELFREG_E_CLASS where neither is
// known.
std::filesystem::path ClassesFolder();

void Write(const Registration& registration);  // replaces an older one whole; raises SELFREG_E_CLASS
void Remove(const std::string& progId);        // nothing happens if there is none
// By name or by CLSID as a text, without regard to case.
std::optional<Registration> Find(std::string_view className);

std::filesystem::path ThisLibrary();  // the file that this code was loaded from

}  // namespace com
