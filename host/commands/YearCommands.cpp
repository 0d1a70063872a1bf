// Switching and adding years.
#include <algorithm>
#include <iostream>
#include <memory>

#include "core/DBCode.h"
#include "core/ErrorModule.h"
#include "core/modGeneral.h"
#include "host/audit/YearList.h"
#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/commands/OpenBooks.h"
#include "host/doors/AllOrNothing.h"
#include "host/make/Fail.h"

namespace host {
namespace {

struct YearOptions {
    std::string folder, year;
    bool yes = false;
};

bool IsLongForm(const std::string& text) {
    const std::string first = text.substr(0, 4);
    return text.size() == 9 && first.find_first_not_of("0123456789") == std::string::npos &&
           text == first + "-" + std::to_string(std::stoi(first) + 1);
}

void TellYear(OpenBooks& books, const std::string& current) {
    books.Close();
    std::cout << "current year: " << current << "\n";
}

bool Known(const std::string& shortForm) {
    const std::vector<Year> years = ReadYears(qm::Conn());
    return std::any_of(years.begin(), years.end(),
                       [&](const Year& year) { return year.ShortForm() == shortForm; });
}

// A try that was killed leaves details behind, or a year in the register without its table.
bool IsHalfMade(const std::string& shortForm) {
    const auto reads = [](const std::string& select, bool& row) {
        return qm::SkipOnError([&] { row = !qm::ExecuteRecordset(select)->Eof(); });
    };
    bool row = false;
    const bool hasTable = reads("Select LedgerTrnNo From tb_Ledger" + shortForm, row);
    reads("Select Ledger_ID From Ledger_Details Where Fnncl_Yr = " + shortForm, row);
    return Known(shortForm) ? !hasTable : row;
}

// A Null total would end the fold of the balances half-way.
std::vector<std::string> LedgersWithNullTotal(qm::clQm& host) {
    std::vector<std::string> names;
    const ado::RecordsetPtr rows = host.Ledgers("(LedDetDRTxnTot Is Null Or LedDetCRTxnTot Is Null)");
    for (; !rows->Eof(); rows->MoveNext()) names.push_back(basic::TextOrEmpty(rows->Fields(1).Value()));
    rows->Close();
    return names;
}

bool Confirmed(const YearOptions& options, const std::string& current) {
    if (options.yes) return true;
    std::cout
        << "Adding " << options.year << " folds the totals of " << current
        << " into its opening balances and gives the new year\n"
        << "the openings and totals that " << current
        << " has now. This cannot be undone but by a backup: make one first\n(qmhost backup). Go on? [y/N] "
        << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

// The class takes the flag from one year and then gives it to the other. In one transaction nobody sees the
// books without a current year, for which any host would begin the first one again.
int SetYear(const YearOptions& options) {
    OpenBooks books(options.folder);
    // "2001-2002", as the list of years has it, means 2001.
    const std::string wanted = IsLongForm(options.year) ? options.year.substr(0, 4) : options.year;
    if (!Known(wanted)) Fail("the books know no year '" + options.year + "' (see qmhost years)");
    if (!AllOrNothing([&] { return books.Host().SetGetFinancialYear(wanted) == wanted; }))
        Fail("the current year is " + CurrentYear() + " still: it could not be moved to " + wanted);
    TellYear(books, wanted);
    return ExitOk;
}

// In one transaction, which the class itself does not begin: a try that fails or is killed leaves nothing,
// and nobody meets the books without a current year. The call says False whatever happened, so what stands is
// looked at.
bool SetUp(qm::clQm& host, const std::string& year) {
    return AllOrNothing([&] {
        host.SetFinancialYear(year);
        const std::string shortForm = year.substr(0, 4);
        return CurrentYear() == shortForm && !IsHalfMade(shortForm);
    });
}

int AddYear(const YearOptions& options) {
    OpenBooks books(options.folder);
    if (!IsLongForm(options.year)) Fail("a year is written like 2002-2003, not '" + options.year + "'");
    const std::string shortForm = options.year.substr(0, 4);
    if (IsHalfMade(shortForm))
        Fail("parts of " + shortForm +
             " stand already: an earlier try did not end, and another would double them. Restore the backup "
             "that was made before it (qmhost restore), then add the year");
    if (Known(shortForm)) Fail("the books already know the year " + options.year);
    const std::vector<std::string> unset = LedgersWithNullTotal(books.Host());
    if (!unset.empty())
        Fail(std::to_string(unset.size()) +
             " ledgers have no debit or no credit total in this year yet (the first is '" + unset.front() +
             "'): their balances cannot be folded. Make the new year on its screen, or open the final "
             "results once, "
             "which sets their totals to 0");
    if (!Confirmed(options, CurrentYear())) {
        std::cout << "nothing was changed\n";
        return ExitFailed;
    }
    if (!SetUp(books.Host(), options.year))
        Fail(options.year + " could not be set up; nothing was changed: run qmhost check");
    TellYear(books, shortForm);
    return ExitOk;
}

}  // namespace

void AddYearSwitch(CommandLine& line) {
    const auto options = std::make_shared<YearOptions>();
    line.Add("year", "Make a known year the current one")
        .Needs("DIR", options->folder, "Folder of the books")
        .Needs("YEAR", options->year, "The year, such as 2002 or 2002-2003")
        .Footer("Example: qmhost year books 2002")
        .Does([options] { return SetYear(*options); });
}

void AddAddYear(CommandLine& line) {
    const auto options = std::make_shared<YearOptions>();
    line.Add("add-year", "Set up a new year by the class and make it the current one")
        .Needs("DIR", options->folder, "Folder of the books")
        .Needs("YEAR", options->year, "Both years, such as 2002-2003")
        .Takes("--yes", options->yes, "Do not ask")
        .Footer(
            "The old year's openings are rewritten and cannot be brought back: make a backup first. The year "
            "has "
            "no stock\n"
            "tables; a year made on the screen has.\n"
            "Example: qmhost add-year books 2002-2003")
        .Does([options] { return AddYear(*options); });
}

}  // namespace host
