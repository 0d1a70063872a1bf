#pragma once

#include <string>

namespace qm {

// Both open the screens one after the other on the books that are open, without a user: no window waits. They
// raise what opening raises, an error that names a box nobody foresaw, and 75 "Path/File access error".

// Writes a picture of the menu and of each screen into the folder: "frmVoucher@100.png", at 200 for a screen
// of twice the density.
void WriteAllPictures(const std::string& folder);

// Writes each report of the books as a PDF file and as text, with tabs between its columns: "Ledger.pdf",
// "Ledger.txt".
void WriteAllReports(const std::string& folder);

}  // namespace qm
