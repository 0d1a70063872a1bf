#pragma once

#include <string>

class QWidget;

namespace desk {

class Desk;

// Writes vouchers, ledgers, parties, trial balance and items of the year as spreadsheets into a folder,
// beside everything else, once the user has agreed to replace any that stand there. The bar tells the end.
void ExportBooks(Desk& desk, QWidget* over, const std::string& folder);

}  // namespace desk
