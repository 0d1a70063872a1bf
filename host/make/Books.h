#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/DBCode.h"

namespace host {

using qm::BooksFile;
using qm::BooksPassword;

// The first year of a financial year that books can be laid down for.
inline constexpr int LowestYear = 1900;
inline constexpr int HighestYear = 9998;

// "2001-2002", as the register has it.
inline std::string LongForm(int year) {
    return std::to_string(year) + "-" + std::to_string(year + 1);
}

// Lays down new books in the folder, which is made where it is missing. Without a year they are the delivered
// books: no year is known and tb_Ledger2001 is missing, both left to the first start, and everything else of
// 2001 stands empty. With a year that year is known, bears the flag, and has all its tables.
//
// The books are put together in a folder of their own inside `folder` and moved to their place when they are
// complete, found whole and on disk; `fill` may add to them there before. After a failure nothing is left
// behind. Throws Failure where books stand already, where the folder cannot be written, on a full disk, and
// whatever `fill` throws. Gives the dated names of what stood there without books, such as the log of a
// crash.
std::vector<std::filesystem::path> CreateBooks(
    const std::filesystem::path& folder, std::optional<int> year = {},
    const std::function<void(const std::filesystem::path& folder)>& fill = {});

}  // namespace host
