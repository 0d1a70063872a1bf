// A year of the books for other programs.
#include <iostream>
#include <memory>
#include <string>

#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/doors/Counted.h"
#include "host/doors/JournalExport.h"
#include "platform/basic/NewFile.h"
#include "queries/Reading.h"

namespace host {
namespace {

struct ExportOptions {
    std::string journal, folder, year;
};

int Export(const ExportOptions& options) {
    const std::string& folder = options.folder;
    queries::Reading books(folder.ends_with("/") ? folder : folder + "/", options.year.substr(0, 4));
    if (!books.Notice().empty()) std::cerr << "qmhost: " << books.Notice() << "\n";
    JournalSize size;
    const auto write = [&](std::ostream& out) { size = WriteJournal(books, out); };
    if (options.journal == "-") {
        basic::WriteWhole(std::cout, "the output", write);
        return ExitOk;
    }
    basic::WriteNewFile(options.journal, write);
    std::cout << options.journal << ": " << books.LongYear() << ", " << Counted(size.ledgers, "ledger")
              << ", " << Counted(size.vouchers, "voucher") << ", " << Counted(size.rows, "row") << "\n";
    return ExitOk;
}

}  // namespace

void AddExport(CommandLine& line) {
    const auto options = std::make_shared<ExportOptions>();
    line.Add("export", "Write a year of the books for other programs")
        .Needs("--journal", options->journal,
               "The file to write, in the journal format of plain-text accounting; - is the standard output")
        .Needs("DIR", options->folder, "Folder of the books, or their server's URI")
        .Takes("--year", options->year, "The year, written like 2002 or 2002-2003; else the current one")
        .Footer(
            "Ledgers with their groups, opening balances, vouchers, narrations; types as tags. It is of one "
            "moment,\n"
            "while others work in the books. qmhost import journal takes it back.\n"
            "Example: qmhost export --journal 2025.journal books && hledger -f 2025.journal balance")
        .Does([options] { return Export(*options); });
}

}  // namespace host
