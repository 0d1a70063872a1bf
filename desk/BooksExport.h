#pragma once

#include <string>

namespace desk {

class Desk;

// Writes vouchers, ledgers, parties, trial balance and items of the year as spreadsheets into a folder,
// beside everything else. The bar tells the end.
void ExportBooks(Desk& desk, const std::string& folder);

}  // namespace desk
