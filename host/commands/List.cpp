// What stands in the books: ledgers and years.
#include <iomanip>
#include <iostream>
#include <memory>

#include "core/modGeneral.h"
#include "host/audit/YearList.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/OpenBooks.h"

namespace host {
namespace {

struct ListOptions {
    std::string folder, where;
};

int ListLedgers(const ListOptions& options) {
    OpenBooks books(options.folder);
    const ado::RecordsetPtr rows = books.Host().Ledgers(options.where);
    for (; !rows->Eof(); rows->MoveNext())
        std::cout << std::setw(6) << basic::TextOrEmpty(rows->Fields(0).Value()) << "  "
                  << basic::TextOrEmpty(rows->Fields(1).Value()) << "\n";
    rows->Close();
    return ExitOk;
}

int ListYears(const ListOptions& options) {
    OpenBooks books(options.folder);
    const std::vector<Year> years = ReadYears(qm::Conn());
    books.Close();  // the first start may have begun the first one
    for (const Year& year : years) std::cout << year.longForm << (year.current ? "  current" : "") << "\n";
    return ExitOk;
}

}  // namespace

void AddLedgers(CommandLine& line) {
    const auto options = std::make_shared<ListOptions>();
    line.Add("ledgers", "List ledgers by number and name")
        .Needs("DIR", options->folder, "Folder of the books")
        .Takes("--where", options->where,
               "Only those of the current year that meet a condition on Ledger_Master and Ledger_Details")
        .Footer("Example: qmhost ledgers books --where \"PrimaryGrp = 'Suppliers'\"")
        .Does([options] { return ListLedgers(*options); });
}

void AddYears(CommandLine& line) {
    const auto options = std::make_shared<ListOptions>();
    line.Add("years", "List the years and say which one is current")
        .Needs("DIR", options->folder, "Folder of the books")
        .Footer("Example: qmhost years books")
        .Does([options] { return ListYears(*options); });
}

}  // namespace host
