// Lists of ledgers, items and openings, and journals, into the books.
#include "host/doors/Import.h"

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/modGeneral.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/FileCommand.h"
#include "host/commands/OpenBooks.h"
#include "host/doors/Counted.h"
#include "host/doors/JournalImport.h"
#include "host/doors/OpeningImport.h"

namespace host {
namespace {

const char* const Journal = "journal";

struct ImportOptions {
    std::string kind, file, folder, year, map;
    bool dryRun = false, again = false;
};

std::string OpeningsText() {
    const OpeningSums sums = SumOpenings();
    return "the openings of " + qm::shared().FinYear +
           (sums.Agree() ? " agree: " + sums.debit + " on either side"
                         : " differ: debit " + sums.debit + ", credit " + sums.credit);
}

// What was found, for a run that writes nothing.
int TellChecked(const ImportOptions& options, OpenBooks& books, const std::string& size) {
    books.Close();
    std::cout << options.file << ": " << size << ", no fault; nothing was imported\n";
    return ExitOk;
}

int TellImported(const ImportOptions& options, OpenBooks& books, const std::string& size,
                 const std::optional<Fault>& failure) {
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

// Runs with a bar that tells how far it is.
template <class Work>
auto WithBar(const char* what, Work work) {
    ProgressBar bar(what);
    return work([&](std::size_t done, std::size_t all) { bar.Done(done, all); });
}

int ImportList(const ImportOptions& options, OpenBooks& books) {
    const ImportFile file = WithBar("checking", [&](const CheckProgress& progress) {
        return CheckImport(options.kind, options.file, books.Host(), progress);
    });
    if (!file.faults.empty()) return TellFaults(options.file, file.faults, "imported");
    const std::string size = Counted(file.rows.size(), options.kind.substr(0, options.kind.size() - 1));
    if (options.dryRun) return TellChecked(options, books, size);
    return TellImported(options, books, size, WithBar("importing", [&](const CheckProgress& progress) {
                            return WriteImport(file, progress);
                        }));
}

int ImportJournal(const ImportOptions& options, OpenBooks& books) {
    const JournalImport journal = WithBar("checking", [&](const CheckProgress& progress) {
        return CheckJournal(options.file, options.map, books.Host(), progress);
    });
    if (!journal.faults.empty()) return TellFaults(options.file, journal.faults, "imported");
    if (!MayStandTwice(journal.vouchers, journal.year, options.again)) return ExitFailed;
    const std::string size = Counted(journal.ledgers.size(), "new ledger") + ", " +
                             Counted(journal.openings.size(), "changed opening") + ", " +
                             Counted(journal.vouchers.vouchers.size(), "voucher") + ", " +
                             Counted(journal.vouchers.RowCount(), "row");
    if (options.dryRun) return TellChecked(options, books, size);
    return TellImported(options, books, size, WithBar("importing", [&](const CheckProgress& progress) {
                            return WriteJournalImport(journal, books.Host(), progress);
                        }));
}

int Import(const ImportOptions& options) {
    OpenBooks books(options.folder);
    YearToWriteInto(options.year);
    return (options.kind == Journal ? ImportJournal : ImportList)(options, books);
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
