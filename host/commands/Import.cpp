// Lists of ledgers, items and openings, and journals, into the books.
#include "host/doors/Import.h"

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/FileCommand.h"
#include "host/commands/OpenBooks.h"
#include "host/doors/IncomingFile.h"
#include "host/doors/OpeningImport.h"

namespace host {
namespace {

const char* const Journal = "journal";

struct ImportOptions {
    std::string kind, file, folder, year, map;
    bool dryRun = false, again = false;
};

// Runs with a bar that tells how far it is.
template <class Work>
auto WithBar(const char* what, Work work) {
    ProgressBar bar(what);
    return work([&](std::size_t done, std::size_t all) { bar.Done(done, all); });
}

int Import(const ImportOptions& options) {
    OpenBooks books(options.folder);
    YearToWriteInto(options.year);
    const IncomingFile file = WithBar("checking", [&](const CheckProgress& progress) {
        return IncomingFile({options.kind, options.file, options.map}, books.Host(), progress);
    });
    if (!file.Faults().empty()) return TellFaults(options.file, file.Faults(), "imported");
    if (!options.again && !MayStandTwice(file.Standing())) return ExitFailed;
    if (options.dryRun) {
        books.Close();
        std::cout << options.file << ": " << file.Size() << ", no fault; nothing was imported\n";
        return ExitOk;
    }
    const std::optional<Fault> failure = WithBar(
        "importing", [&](const CheckProgress& progress) { return file.Write(books.Host(), progress); });
    if (failure) {
        TellFault(options.file, *failure);
        return ExitFailed;
    }
    const std::string openings = options.kind == "items" ? "" : OpeningsText();
    books.Close();
    std::cout << "imported " << file.Size() << "\n";
    if (!openings.empty()) std::cout << openings << "\n";
    return ExitOk;
}

std::vector<std::string> Kinds() {
    std::vector<std::string> kinds = ImportKinds();
    kinds.push_back(Journal);
    return kinds;
}

std::string ImportHelp() {
    std::string text =
        "The first line of FILE names its columns, in any order; those with * must be there:\n";
    for (const std::string& kind : ImportKinds()) text += "  " + kind + ": " + ImportColumns(kind) + "\n";
    return text +
           "A journal is what qmhost export writes, or the plain part of what other programs of its format "
           "write;\n"
           "an account goes to the ledger of its name, or of the name behind \"Group:\". Dates lie in the "
           "year.\n"
           "The whole file is checked first, by the rules of the screens that enter the same; with a fault "
           "in "
           "it\n"
           "nothing is imported. Then all of it is written in one transaction.\n"
           "Example: qmhost import ledgers ledgers.csv books --dry-run";
}

}  // namespace

void AddImport(CommandLine& line) {
    const auto options = std::make_shared<ImportOptions>();
    line.Add("import", "Bring in a list of ledgers, items or openings, or a journal: all of it or nothing")
        .Needs("KIND", options->kind, "What the file holds", Kinds())
        .Needs("FILE", options->file, "The file, in UTF-8: comma-separated text, or a journal")
        .Needs("DIR", options->folder, "Folder of the books, or their server's URI")
        .Takes("--dry-run", options->dryRun, "Check the file and import nothing")
        .Takes("--map", options->map,
               "For a journal: a file with the columns account and ledger, for accounts of other names")
        .Takes("--again", options->again,
               "Take a journal although all its vouchers stand in the books already")
        .Takes("--year", options->year, "Refuse unless this is the current year")
        .Footer(ImportHelp)
        .Does([options] { return Import(*options); });
}

}  // namespace host
