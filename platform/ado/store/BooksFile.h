#pragma once

#include <string>

namespace ado {

// What can be told of a file without its key.
enum class FileLook {
    Missing,      // nothing there
    NoFile,       // a folder, a device or the like
    ManyNames,    // hard links: under each name the store would keep another log
    NotReadable,  // its rights forbid to read or write it
    NotBooks,     // empty, an unencrypted database, or content that was never encrypted
    Encrypted     // may be a books file
};

// Looks at the file at the path. `closely` also weighs the first bytes, which takes a key that does not fit
// as the reason: a books file that a crash left with a torn end is not turned away before the library
// repaired it.
FileLook LookAt(const std::string& path, bool closely);

}  // namespace ado
