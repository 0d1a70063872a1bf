// What stands in the books as lists: on the terminal, for other programs, as a spreadsheet or on paper.
#include <filesystem>
#include <iostream>
#include <memory>

#include "core/Screens.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/ListFilters.h"
#include "host/make/Fail.h"
#include "platform/basic/NewFile.h"
#include "queries/Bills.h"
#include "queries/ErrorLog.h"
#include "queries/Items.h"
#include "queries/LedgerLines.h"
#include "queries/Ledgers.h"
#include "queries/Movements.h"
#include "queries/Narrowed.h"
#include "queries/Orders.h"
#include "queries/Parties.h"
#include "queries/Results.h"
#include "queries/TrialBalance.h"
#include "queries/Vouchers.h"
#include "queries/sheets/Csv.h"
#include "queries/sheets/Json.h"
#include "queries/sheets/Page.h"
#include "queries/sheets/Table.h"
#include "queries/sheets/Workbook.h"

namespace host {
namespace {

namespace fs = std::filesystem;
using SheetPtr = std::unique_ptr<queries::Sheet>;

struct ListOptions {
    std::string name, folder, year;
    ListFilters filters;
    bool csv = false, json = false;
    std::string xlsx, pdf;
};

// Filters that a list takes.
enum Taken : unsigned { LastDay = 1, FirstDay = 2, Days = 3, Type = 4, Ledger = 8, Text = 16 };

struct ListKind {
    const char *name, *what, *example;
    unsigned takes;
    SheetPtr (*sheet)(queries::Reading& books, const ListOptions& options);
    const char* needs = nullptr;  // what it is a list of, behind its name
};

SheetPtr WithWords(SheetPtr sheet, const ListOptions& options) {
    if (options.filters.text.empty()) return sheet;
    return std::make_unique<queries::Narrowed>(std::move(sheet), options.filters.text);
}

SheetPtr Vouchers(queries::Reading& books, const ListOptions& options) {
    const ListFilters& typed = options.filters;
    queries::VoucherFilter filter;
    filter.days = DaysOf(typed);
    filter.type = VoucherTypeOf(typed);
    filter.ledger = LedgerOf(typed, books);
    filter.words = typed.text;
    return queries::ListVouchers(books, filter);
}

SheetPtr Ledgers(queries::Reading& books, const ListOptions& options) {
    return WithWords(queries::LedgersSheet(books), options);
}

SheetPtr Statement(queries::Reading& books, const ListOptions& options) {
    return queries::ListLedger(books, LedgerNamed(options.name, books), DaysOf(options.filters));
}

SheetPtr TrialBalance(queries::Reading& books, const ListOptions& options) {
    return WithWords(queries::TrialBalanceSheet(books, DaysOf(options.filters)), options);
}

SheetPtr Results(queries::Reading& books, const ListOptions& options) {
    return queries::ResultsSheet(books, DaysOf(options.filters));
}

// By the age of what is open on a day.
SheetPtr Parties(queries::Reading& books, const ListOptions& options) {
    return WithWords(queries::PartiesSheet(books, DaysOf(options.filters).upto), options);
}

SheetPtr Items(queries::Reading& books, const ListOptions& options) {
    return queries::ItemsSheet(books, options.filters.text);
}

SheetPtr Movements(queries::Reading& books, const ListOptions& options) {
    const ListFilters& typed = options.filters;
    return queries::ListMovements(
        books, {.days = DaysOf(typed), .type = MovementTypeOf(typed), .words = typed.text});
}

SheetPtr Orders(queries::Reading& books, const ListOptions& options) {
    const ListFilters& typed = options.filters;
    return queries::OrdersSheet(
        books, {.days = DaysOf(typed), .supplier = LedgerOf(typed, books), .words = typed.text});
}

SheetPtr Bills(queries::Reading& books, const ListOptions& options) {
    const ListFilters& typed = options.filters;
    return queries::BillsSheet(
        books, {.days = DaysOf(typed), .supplier = LedgerOf(typed, books), .words = typed.text});
}

SheetPtr Log(queries::Reading& books, const ListOptions& options) {
    return queries::ErrorLogSheet(books, DaysOf(options.filters), options.filters.text);
}

constexpr ListKind Kinds[] = {
    {"vouchers", "The lines of the year's vouchers, by date",
     "qmhost list vouchers books --from 01-Apr-2001 --upto 30-Apr-2001 --type Payment",
     Days | Type | Ledger | Text, Vouchers},
    {"ledger", "One ledger's statement with its running balance",
     "qmhost list ledger Cash books --from 01-Jun-2001 --upto 30-Jun-2001", Days, Statement,
     "The ledger, by name or number"},
    {"ledgers", "Openings, totals and closing balances, by the rows and as they are posted",
     "qmhost list ledgers books --text debtors --xlsx debtors.xlsx", Text, Ledgers},
    {"trial-balance", "The trial balance of any range of days",
     "qmhost list trial-balance books --upto 30-Jun-2001", Days | Text, TrialBalance},
    {"results", "Trading, profit and loss, and the balance sheet, down to the ledgers",
     "qmhost list results books --xlsx results.xlsx", Days, Results},
    {"parties", "What debtors owe and suppliers are owed, by the age of what is open",
     "qmhost list parties books --upto 30-Sep-2001", LastDay | Text, Parties},
    {"items", "The stock of each item: opening, counters, net stock, worth, what to reorder",
     "qmhost list items books --csv", Text, Items},
    {"movements", "Receipts and issues of stock with the balance behind each",
     "qmhost list movements books --type Issue", Days | Type | Text, Movements},
    {"orders", "The lines of purchase orders with what was received and what is outstanding",
     "qmhost list orders books --ledger \"Shree Paper Mills\"", Days | Ledger | Text, Orders},
    {"bills", "Bills of goods with what they posted", "qmhost list bills books --pdf bills.pdf",
     Days | Ledger | Text, Bills},
    {"log", "The error log", "qmhost list log books --from 01-Apr-2001", Days | Text, Log},
};

// The folder's last name, or the database's.
std::string NameOf(const std::string& folder) {
    fs::path path =
        folder.find("://") == folder.npos ? fs::absolute(folder).lexically_normal() : fs::path(folder);
    if (!path.has_filename()) path = path.parent_path();
    return path.filename().string();
}

constexpr std::size_t MostUpright = 6;  // columns on a sheet that stands upright

void WritePdf(const queries::Sheet& sheet, const ListOptions& options) {
    basic::NewFile place(options.pdf);
    qm::WritePage(queries::PageOf(sheet), {sheet.Title(), NameOf(options.folder)},
                  sheet.Columns().size() > MostUpright, place.Staging());
    place.Publish();
}

void Tell(const std::string& file, const queries::Sheet& sheet) {
    std::cout << file << ": " << sheet.Rows() << (sheet.Rows() == 1 ? " row\n" : " rows\n");
}

void WriteOut(const queries::Sheet& sheet, const ListOptions& options) {
    if (!options.xlsx.empty()) {
        queries::WriteWorkbook(sheet, options.xlsx);
        return Tell(options.xlsx, sheet);
    }
    if (!options.pdf.empty()) {
        WritePdf(sheet, options);
        return Tell(options.pdf, sheet);
    }
    const auto write = options.csv    ? queries::WriteCsv
                       : options.json ? queries::WriteJson
                                      : queries::WriteTable;
    basic::WriteWhole(std::cout, "the list", [&](std::ostream& out) { write(sheet, out); });
}

int List(const ListKind& kind, const ListOptions& options) {
    if (options.csv + options.json + !options.xlsx.empty() + !options.pdf.empty() > 1)
        Fail("only one of --csv, --json, --xlsx and --pdf at a time");
    queries::Reading books(options.folder.ends_with("/") ? options.folder : options.folder + "/",
                           options.year.substr(0, 4));
    if (const std::string notice = books.Notice(); !notice.empty()) std::cerr << notice << "\n";
    const queries::Reading::Moment moment(books);
    WriteOut(*kind.sheet(books, options), options);
    return ExitOk;
}

void AddKind(Subcommand& list, const ListKind& kind) {
    const auto options = std::make_shared<ListOptions>();
    ListFilters& filters = options->filters;
    Subcommand command = list.Add(kind.name, kind.what);
    if (kind.needs != nullptr) command.Needs("NAME", options->name, kind.needs);
    command.Needs("DIR", options->folder, "Folder of the books, or their server's URI")
        .Takes("--year", options->year, "Another year than the current one, such as 2001");
    if (kind.takes & FirstDay) command.Takes("--from", filters.from, "From this day on, such as 01-Apr-2001");
    if (kind.takes & LastDay) command.Takes("--upto", filters.upto, "Up to this day, such as 30-Apr-2001");
    if (kind.takes & Type)
        command.Takes("--type", filters.type, "Only this type, by its word or first letter");
    if (kind.takes & Ledger) command.Takes("--ledger", filters.ledger, "Only this ledger, by name or number");
    if (kind.takes & Text) command.Takes("--text", filters.text, "Only what holds each of these words");
    command.Takes("--csv", options->csv, "As comma-separated text in UTF-8")
        .Takes("--json", options->json, "As a JSON array")
        .Takes("--xlsx", options->xlsx, "Into a spreadsheet, this file")
        .Takes("--pdf", options->pdf, "Onto paper, this PDF file")
        .Footer("Example: " + std::string(kind.example))
        .Does([options, &kind] { return List(kind, *options); });
}

}  // namespace

void AddLists(CommandLine& line) {
    Subcommand list =
        line.Add("list", "List what stands in the books, also as CSV, JSON, spreadsheet or PDF");
    list.Footer(
        "Others may go on posting: what is read is of one moment. A file is written over one of its name, "
        "and "
        "only when it is whole.\n"
        "Example: qmhost list vouchers books --text rent");
    for (const ListKind& kind : Kinds) AddKind(list, kind);
}

}  // namespace host
