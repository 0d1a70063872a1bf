// The years: their flags, and what a new year that was not finished leaves behind.
#include <algorithm>

#include "host/audit/Audit.h"
#include "host/audit/YearList.h"
#include "host/make/YearTables.h"

namespace host {
namespace {

using Kind = Subject::Kind;

constexpr const char* NotFinished = ": a new year was not finished";

// The known years, each once.
std::vector<std::string> CheckRegister(Audit& audit) {
    std::vector<std::string> known;
    int flags = 0;
    const std::vector<Year> years = ReadYears(audit.Books());
    for (const Year& year : years) {
        flags += year.current ? 1 : 0;
        if (std::find(known.begin(), known.end(), year.ShortForm()) != known.end())
            audit.Note({Kind::Years}, "year " + year.longForm + ": stands twice in the register");
        else
            known.push_back(year.ShortForm());
    }
    if (years.empty()) audit.Note({Kind::Years}, "years: none yet; the first start makes 2001-2002");
    if (!years.empty() && flags == 0) audit.Error({Kind::Years}, "years: none is flagged as current");
    if (flags > 1) audit.Error({Kind::Years}, "years: " + std::to_string(flags) + " are flagged as current");
    return known;
}

// A year that the class adds has none of the stock tables; one that the screen adds has them all.
void CheckTables(Audit& audit, const std::string& year) {
    std::vector<std::string> missing;
    std::size_t stockTables = 0;
    for (const YearTable& table : YearTables()) {
        stockTables += table.Stock() ? 1 : 0;
        if (audit.HasTable(table.Stem + year)) continue;
        if (table.Stock())
            missing.push_back(table.Stem + year);
        else
            audit.Error({Kind::File}, "year " + year + ": the table " + table.Stem + year + " is missing");
    }
    for (const std::string& table : missing)
        if (missing.size() == stockTables)
            audit.Note({Kind::Years},
                       "year " + year + ": has no table " + table + "; its stock screens will not work");
        else
            audit.Error({Kind::File}, "year " + year + ": has no table " + table + NotFinished);
}

// Items are copied last into a new year. Those that were all entered later are no fault.
void CheckItems(Audit& audit, const std::vector<std::string>& years) {
    std::string before;  // the last year that has items
    for (const std::string& year : years) {
        bool has = false;
        audit.Each("Select Item_ID From ItemMaster" + year, [&](ado::Recordset&) { has = true; });
        if (!has && !before.empty() && audit.HasTable("ItemMaster" + year))
            audit.Note({Kind::Items, 0, year}, "year " + year + ": has no items, and " + before +
                                                   " has; the new year may not have been finished");
        if (has) before = year;
    }
}

void CheckDetails(Audit& audit) {
    std::map<std::int32_t, std::map<std::int32_t, int>> rowsOf;  // of each ledger in each year
    audit.Each("Select Ledger_ID, Fnncl_Yr From Ledger_Details",
               [&](ado::Recordset& row) { ++rowsOf[IdOf(row, "Fnncl_Yr")][IdOf(row, "Ledger_ID")]; });
    rowsOf.erase(0);
    for (const auto& [number, ledgers] : rowsOf) {
        const std::string year = std::to_string(number);
        const auto& known = audit.Years();
        if (std::find(known.begin(), known.end(), year) == known.end())
            audit.Error({Kind::File},
                        "year " + year + ": has details of ledgers and is not in the register" + NotFinished);
        const auto doubled = std::count_if(ledgers.begin(), ledgers.end(),
                                           [](const auto& ledger) { return ledger.second > 1; });
        if (doubled > 1)
            audit.Error({Kind::File},
                        "year " + year + ": " + std::to_string(doubled) +
                            " ledgers have more than one detail row: the new year was begun more than once");
    }
}

}  // namespace

void AuditYears(Audit& audit) {
    audit.SetYears(CheckRegister(audit));
    for (const std::string& year : audit.Years()) CheckTables(audit, year);
    CheckItems(audit, audit.Years());
    CheckDetails(audit);
    audit.Each("Select vchrmstType From tblvchrmst Where vchrmstFinYear = 0", [&](ado::Recordset& row) {
        audit.Error({Kind::File}, "voucher register: '" + basic::TextOrEmpty(row["vchrmstType"]) +
                                      "' is of no year" + NotFinished);
    });
}

}  // namespace host
