#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/ado/Maintenance.h"

namespace host {

// Puts a copy of books in the place of those of a folder, which is made where it is missing. The copy is read
// only: it is copied first, with the log beside it if it has one of its own, and found whole before anything
// in the folder is touched. What stands there then, log included, is given a dated name, and the restored
// books are on the disk when this returns. Books on a server may be either: there the database of those that
// stand gets the dated name. Gives the dated names. Raises where the copy does not open or is
// damaged, and where somebody has the books open; nothing is changed then.
std::vector<std::filesystem::path> RestoreBooks(const std::string& file, const std::string& folder);

// Rows and sums of a backup's tables, once a copy of it in a passing folder has been found whole, as before a
// restore. Nothing is written beside the file. Raises where it could not be restored.
std::vector<ado::TableSums> VerifyBackup(const std::string& file);

}  // namespace host
