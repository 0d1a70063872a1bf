// Lists of ledgers, items and openings into the books.
#include "host/doors/Import.h"

#include <iostream>
#include <memory>
#include <string>

#include "core/modGeneral.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/FileCommand.h"
#include "host/commands/OpenBooks.h"
#include "host/doors/Counted.h"
#include "host/doors/OpeningImport.h"

namespace host {
namespace {

struct ImportOptions {
    std::string kind, file, folder, year;
    bool dryRun = false;
};

std::string OpeningsText() {
    const OpeningSums sums = SumOpenings();
    return "the openings of " + qm::shared().FinYear +
           (sums.Agree() ? " agree: " + sums.debit + " on either side"
                         : " differ: debit " + sums.debit + ", credit " + sums.credit);
}

int ImportList(const ImportOptions& options) {
    OpenBooks books(options.folder);
    YearToWriteInto(options.year);
    const ImportFile file = [&] {
        ProgressBar bar("checking");
        return CheckImport(options.kind, options.file, books.Host(),
                           [&](std::size_t done, std::size_t all) { bar.Done(done, all); });
    }();
    if (!file.faults.empty()) return TellFaults(options.file, file.faults, "imported");
    const std::string size = Counted(file.rows.size(), options.kind.substr(0, options.kind.size() - 1));
    if (options.dryRun) {
        books.Close();
        std::cout << options.file << ": " << size << ", no fault; nothing was imported\n";
        return ExitOk;
    }
    const std::optional<Fault> failure = [&] {
        ProgressBar bar("importing");
        return WriteImport(file, [&](std::size_t done, std::size_t all) { bar.Done(done, all); });
    }();
    if (failure) {
        TellFault(options.file, *failure);
        return ExitFailed;
    }
    const std::string openings = options.kind == "items" ? "" : OpeningsText();
    books.Close();
    std::cout << "imported " << size << "\n";
    if (!openings.empty()) std::cout << openings << "\n";
    return ExitOk;
}

std::string ImportHelp() {
    std::string text =
        "The first line of FILE names its columns, in any order; those with * must be there:\n";
    for (const std::string& kind : ImportKinds()) text += "  " + kind + ": " + ImportColumns(kind) + "\n";
    return text +
           "The whole file is checked first, by the rules of the screens that enter the same; with a fault "
           "in "
           "it\n"
           "nothing is imported. Then all of it is written in one transaction.\n"
           "Example: qmhost import ledgers ledgers.csv books --dry-run";
}

}  // namespace

void AddImport(CommandLine& line) {
    const auto options = std::make_shared<ImportOptions>();
    line.Add("import", "Bring in a list of ledgers, items or openings, or nothing of it")
        .Needs("KIND", options->kind, "What the file holds", ImportKinds())
        .Needs("FILE", options->file, "The file, comma-separated text in UTF-8")
        .Needs("DIR", options->folder, "Folder of the books, or their server's URI")
        .Takes("--dry-run", options->dryRun, "Check the file and import nothing")
        .Takes("--year", options->year, "Refuse unless this is the current year")
        .Footer(ImportHelp)
        .Does([options] { return ImportList(*options); });
}

}  // namespace host
