#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace host {

// Puts a copy of books in the place of those of a folder, which is made where it is missing. The copy is read
// only: it is copied first, with the log beside it if it has one of its own, and found whole before anything
// in the folder is touched. What stands there then, log included, is given a dated name, and the restored
// books are on the disk when this returns. Books on a server may be either: there the database of those that
// stand gets the dated name. Gives the dated names. Raises where the copy does not open or is
// damaged, and where somebody has the books open; nothing is changed then.
std::vector<std::filesystem::path> RestoreBooks(const std::string& file, const std::string& folder);

}  // namespace host
