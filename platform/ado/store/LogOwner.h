#pragma once

#include <string>

namespace ado {

struct LogFate {
    std::string setAside;  // where a log went that belonged to another file
    // It cannot be told, since the file's first page cannot be read: nothing was done.
    bool unreadable = false;
};

// Looks, before the library opens a store, whether the log beside it belongs to it, and sets a log of another
// file aside, so that nothing of it is taken in. Where others have the store open their log is left alone.
// Raises where the log cannot be given another name.
LogFate SettleLog(const std::string& path, const std::string& password);

// For the user: what became of the log.
std::string TellSetAside(const std::string& path, const std::string& setAside);

}  // namespace ado
