#pragma once

#include <filesystem>

namespace host {

// Fills fresh books, laid down for `year`, with a small trading firm: ledgers whose openings agree, items,
// and a year of vouchers moved to that year and posted through the class. The books are open only meanwhile.
// Raises basic::Error.
void FillWithSample(const std::filesystem::path& folder, int year);

// The first year of the financial year, 1 April to 31 March, in which today lies.
int FinancialYearOfToday();

}  // namespace host
