#pragma once

#include <string>

namespace qm {

// Writes each report of the open books as a PDF file and as text, with tabs between its columns:
// "Ledger.pdf", "Ledger.txt". The screens print them one after the other, without a user. Raises what opening
// raises, an error that names a box nobody foresaw, and 75 "Path/File access error".
void WriteAllReports(const std::string& folder);

}  // namespace qm
