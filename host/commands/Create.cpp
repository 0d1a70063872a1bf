#include <iostream>
#include <memory>
#include <optional>

#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/Sample.h"
#include "host/make/Books.h"

namespace host {
namespace {

struct CreateOptions {
    std::string folder;
    std::optional<int> year;
    bool sample = false;
};

int Create(const CreateOptions& options) {
    std::optional<int> year = options.year;
    if (options.sample && !year) year = FinancialYearOfToday();
    std::function<void(const std::filesystem::path&)> fill;
    if (options.sample) fill = [&](const auto& staging) { FillWithSample(staging, *year); };
    for (const std::filesystem::path& aside : CreateBooks(options.folder, year, fill))
        std::cerr << "qmhost: what stood there without its books was set aside as " << aside.string() << "\n";
    std::cout << (std::filesystem::path(options.folder) / BooksFile).string() << ": "
              << (options.sample ? "sample books" : "new books");
    if (year) std::cout << " for " << *year << "-" << *year + 1;
    std::cout << "\n";
    return ExitOk;
}

}  // namespace

void AddCreate(CommandLine& line) {
    const auto options = std::make_shared<CreateOptions>();
    line.Add("create", "Lay down new books in a folder")
        .Needs("DIR", options->folder, "Folder of the books, made where it is missing")
        .Takes("--year", options->year, LowestYear, HighestYear,
               "First year of the financial year to lay down as the current one; without it the first "
               "start of the books begins 2001-2002")
        .Takes("--sample", options->sample,
               "Fill them with a small trading firm: ledgers, items and 60 vouchers (without --year in "
               "today's financial year)")
        .Footer(
            "Nothing is left behind where it fails, and books that stand are never touched.\n"
            "Example: qmhost create books --year 2025 --sample")
        .Does([options] { return Create(*options); });
}

}  // namespace host
