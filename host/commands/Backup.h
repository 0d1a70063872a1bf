#pragma once

#include <string>

#include "platform/ado/Connection.h"

namespace host {

// Copies the books of a folder into a new file while others may work, under the same password; then opens the
// copy, checks its pages and compares the sums of every table with those of the moment of the copy. Only then
// does it get its name, and it is on the disk when this returns. Its rights are the owner's alone. Raises
// where the file exists, its folder does not or a sum differs.
void BackUpBooks(const std::string& folder, const std::string& file);

// The same of books that are open on a connection, on any thread.
void BackUpOpenBooks(ado::Connection& books, bool onServer, const std::string& file);

}  // namespace host
