#pragma once

#include <string>

namespace qm {

// Writes a picture of the menu and of each screen into the folder: "frmVoucher@100.png", at 200 for a screen
// of twice the density. The screens open one after the other, without a user, on a copy of the books that are
// open. Raises what copying and opening raise, an error that names a box nobody foresaw, and 75 "Path/File
// access error".
void WriteAllPictures(const std::string& folder);

}  // namespace qm
