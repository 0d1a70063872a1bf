#include "host/commands/Create.h"

#include <iostream>
#include <memory>
#include <optional>

#include "host/commands/BooksCopy.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Copy.h"
#include "host/commands/Exit.h"
#include "host/commands/Sample.h"
#include "host/make/Books.h"
#include "host/make/Fail.h"
#include "host/make/PassingFolder.h"
#include "platform/ado/store/ServerAddress.h"

namespace host {
namespace {

struct CreateOptions {
    std::string folder;
    std::optional<int> year;
    bool sample = false, roles = false;
};

using Fill = std::function<void(const std::filesystem::path&)>;

void CreateInFolder(const CreateOptions& options, const Fill& fill) {
    for (const std::filesystem::path& aside : CreateBooks(options.folder, options.year, fill))
        std::cerr << "qmhost: what stood there without its books was set aside as " << aside.string() << "\n";
}

int Create(CreateOptions options) {
    const bool onServer = ado::IsServerAddress(options.folder);
    if (options.roles && !onServer) Fail("roles belong to books on a server");
    if (options.sample && !options.year) options.year = FinancialYearOfToday();
    Fill fill;
    if (options.sample) fill = [&](const auto& staging) { FillWithSample(staging, *options.year); };
    if (onServer)
        CreateBooksOnServer(options.folder, options.year, options.roles, fill);
    else
        CreateInFolder(options, fill);
    std::cout << (onServer ? options.folder : (std::filesystem::path(options.folder) / BooksFile).string())
              << ": " << (options.sample ? "sample books" : "new books");
    if (options.year) std::cout << " for " << LongForm(*options.year);
    std::cout << "\n";
    return ExitOk;
}

}  // namespace

// Put together as a file that nobody sees, and copied as one.
void CreateBooksOnServer(const std::string& server, std::optional<int> year, bool roles,
                         const std::function<void(const std::filesystem::path& folder)>& fill) {
    const PassingFolder folder;
    CreateBooks(folder.Path(), year, fill);
    const ado::ConnectionPtr made = OpenCopy(folder.Path() / BooksFile);
    CopyTo(*made, server, roles);
    made->Close();
}

void AddCreate(CommandLine& line) {
    const auto options = std::make_shared<CreateOptions>();
    line.Add("create", "Lay down new books in a folder or on a server")
        .Needs("DIR", options->folder,
               "Folder of the books, made where it is missing, or the URI of a server's database, made where "
               "it is "
               "missing, too: postgresql://host/firm/")
        .Takes("--year", options->year, LowestYear, HighestYear,
               "First year of the financial year to lay down as the current one; without it the first "
               "start of the books begins 2001-2002")
        .Takes("--sample", options->sample,
               "Fill them with a small trading firm: ledgers, items and 60 vouchers (without --year in "
               "today's financial year)")
        .Takes("--roles", options->roles,
               "On a server: make the roles of those who write, NAME_books, and of those who only read, "
               "NAME_read")
        .Footer(
            "Nothing is left behind where it fails, and books that stand are never touched.\n"
            "Example: qmhost create books --year 2025 --sample")
        .Does([options] { return Create(*options); });
}

}  // namespace host
