#include "host/commands/Sample.h"

#include <cstdint>
#include <string>
#include <vector>

#include "core/DBCode.h"
#include "core/Masks.h"
#include "core/clQm.h"
#include "core/modGeneral.h"
#include "host/doors/Posting.h"
#include "host/doors/VoucherFile.h"
#include "host/make/Embedded.h"
#include "host/make/Fail.h"
#include "platform/ado/Constants.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Clock.h"
#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"

namespace host {
namespace {

constexpr int YearOfTheFile = 2001;
using Texts = std::vector<std::string>;

std::string FirstOf(const std::string& sql) {
    const auto values = qm::FetchFirstColumn(sql);
    if (values.empty()) Fail("the sample does not fit the books: no row for " + sql);
    return basic::ToText(values.front());
}

// Adds a row with the named fields; a blank one is left unset where `skipBlanks`.
void AddRow(const std::string& table, const Texts& fields, const Texts& values, bool skipBlanks) {
    ado::Recordset rows;
    rows.Open(table, qm::shared().Connection, ado::adOpenDynamic, ado::adLockOptimistic);
    rows.AddNew();
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (!skipBlanks || !values[i].empty()) rows.Fields(fields[i]).SetValue(values[i]);
    rows.Update();
    rows.Close();
}

// Writes what the ledger screen writes: the leaf in the tree of groups, the ledger, its details of the year.
void AddLedger(const Texts& header, const Texts& cells, const std::string& year) {
    const std::string &name = cells[0], &group = cells[1], &opening = cells[2], &side = cells[3];
    const std::string parent =
        FirstOf("Select Group_Id From Group_Head_Master Where Group_Head_Name = '" + group + "'");
    AddRow("Group_Head_Master", {"Group_Head_Name", "Parent_Id"}, {name, parent}, false);
    const std::string id =
        FirstOf("Select Group_Id From Group_Head_Master Where Group_Head_Name = '" + name + "'");

    Texts fields{"Ledger_ID", "Group_Id", "Name", "PrimaryGrp"}, values{id, parent, name, group};
    fields.insert(fields.end(), header.begin() + 4, header.end());
    // The screen stores a blank before each contact detail, also when its box was empty.
    for (auto cell = cells.begin() + 4; cell != cells.end(); ++cell) values.push_back(" " + *cell);
    AddRow("Ledger_Master", fields, values, false);
    AddRow("Ledger_Details", {"Ledger_ID", "Fnncl_Yr", "Opening_Bal", "Closing_Bal", "Bal_Type"},
           {id, year, opening, opening, side}, false);
}

// The file's dates lie in its own year; its columns are voucher, date, ...
std::vector<CsvRow> VouchersMovedTo(int year) {
    constexpr std::size_t date = 1;
    std::vector<CsvRow> rows = ParseCsv(Embedded("sample/vouchers.csv"));
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const auto day = basic::Parts(basic::ReadDate(rows[i].fields[date]));
        rows[i].fields[date] =
            basic::Format(basic::MakeDate(day.Year + year - YearOfTheFile, day.Month, day.Day), qm::DateMask);
    }
    return rows;
}

void PostSampleVouchers(qm::clQm& books, int year) {
    const auto firstYear = static_cast<std::int16_t>(year);
    const VoucherFile file = CheckVouchers(VouchersMovedTo(year), books, firstYear);
    if (!file.faults.empty())
        Fail("sample/vouchers.csv:" + std::to_string(file.faults[0].line) + ": " + file.faults[0].reason);
    const PostingResult result = PostVouchers(books, file, firstYear, [](std::size_t) { return true; });
    if (result.failure)
        Fail("sample/vouchers.csv:" + std::to_string(result.failure->line) + ": " + result.failure->reason);
}

}  // namespace

void FillWithSample(const std::filesystem::path& folder, int year) {
    qm::clQm books;
    books.dataPath(folder.string() + (folder.has_filename() ? "/" : ""));
    books.StartDataConn();
    qm::Conn().BeginTrans();
    const auto ledgers = ParseCsv(Embedded("sample/ledgers.csv"));
    for (std::size_t i = 1; i < ledgers.size(); ++i)
        AddLedger(ledgers[0].fields, ledgers[i].fields, std::to_string(year));
    const auto items = ParseCsv(Embedded("sample/items.csv"));
    for (std::size_t i = 1; i < items.size(); ++i)
        AddRow("ItemMaster" + qm::shared().FinYear, items[0].fields, items[i].fields, true);
    PostSampleVouchers(books, year);
    qm::Conn().CommitTrans();
    qm::Conn().Close();
}

int FinancialYearOfToday() {
    const auto today = basic::Parts(basic::Clock::Today());
    return today.Month >= 4 ? today.Year : today.Year - 1;
}

}  // namespace host
