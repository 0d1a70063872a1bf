#pragma once

#include <string>

namespace host {

// Copies the books of a folder into a new file while others may work, under the same password; then opens the
// copy, checks its pages and compares the sums of every table with those of the moment of the copy. Raises
// where the file exists or a sum differs; a copy that did not pass is removed.
void BackUpBooks(const std::string& folder, const std::string& file);

}  // namespace host
