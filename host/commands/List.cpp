// What stands in the books: ledgers and years.
#include <iomanip>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

#include "host/audit/YearList.h"
#include "host/commands/Command.h"
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
    const std::vector<Year> years = ReadYears();
    books.Close();  // the first start may have begun the first one
    for (const Year& year : years) std::cout << year.longForm << (year.current ? "  current" : "") << "\n";
    return ExitOk;
}

}  // namespace

void AddLedgers(CLI::App& app, Command& chosen) {
    const auto options = std::make_shared<ListOptions>();
    auto* command = app.add_subcommand("ledgers", "List ledgers by number and name");
    command->add_option("DIR", options->folder, "Folder of the books")->required();
    command->add_option(
        "--where", options->where,
        "Only those of the current year that meet a condition on Ledger_Master and Ledger_Details");
    command->footer("Example: qmhost ledgers books --where \"PrimaryGrp = 'Suppliers'\"");
    command->callback([options, &chosen] { chosen = [options] { return ListLedgers(*options); }; });
}

void AddYears(CLI::App& app, Command& chosen) {
    const auto options = std::make_shared<ListOptions>();
    auto* command = app.add_subcommand("years", "List the years and say which one is current");
    command->add_option("DIR", options->folder, "Folder of the books")->required();
    command->footer("Example: qmhost years books");
    command->callback([options, &chosen] { chosen = [options] { return ListYears(*options); }; });
}

}  // namespace host
