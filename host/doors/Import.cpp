#include "host/doors/Import.h"

#include <algorithm>
#include <utility>

#include "core/DBCode.h"
#include "core/modGeneral.h"
#include "host/doors/AllOrNothing.h"
#include "host/doors/ItemImport.h"
#include "host/doors/LedgerImport.h"
#include "host/doors/OpeningImport.h"
#include "host/doors/QuietBoxes.h"
#include "host/make/Fail.h"

namespace host {
namespace {

struct Kind {
    std::string name;
    const std::vector<Head>& (*heads)();
    void (*check)(CsvTable&, qm::clQm&, ImportFile&, const CheckProgress&);
};

const std::vector<Kind>& Kinds() {
    static const std::vector<Kind> kinds{{"ledgers", LedgerHeads, CheckLedgers},
                                         {"items", ItemHeads, CheckItems},
                                         {"openings", OpeningHeads, CheckOpenings}};
    return kinds;
}

const Kind& KindOf(const std::string& name) {
    const auto kind =
        std::find_if(Kinds().begin(), Kinds().end(), [&](const Kind& one) { return one.name == name; });
    if (kind == Kinds().end()) Fail("nothing is known of a file of '" + name + "'");
    return *kind;
}

}  // namespace

const std::vector<std::string>& ImportKinds() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const Kind& kind : Kinds()) all.push_back(kind.name);
        return all;
    }();
    return names;
}

const std::vector<Head>& ImportHeads(const std::string& kind) {
    return KindOf(kind).heads();
}

std::string ImportColumns(const std::string& kind) {
    std::string names;
    for (const Head& head : ImportHeads(kind))
        names += (names.empty() ? "" : ", ") + std::string(head.name) + (head.needed ? "*" : "");
    return names;
}

ImportFile CheckImport(const std::string& kind, const std::filesystem::path& file, qm::clQm& books,
                       const CheckProgress& progress) {
    const Kind& door = KindOf(kind);
    ImportFile checked{qm::shared().FinYear, {}, {}, {}};
    auto rows =
        ReadCsvFile(file, checked.faults, [](std::size_t field) { return std::to_string(field + 1); });
    if (!rows) return checked;
    checked.read = std::move(*rows);
    CsvTable table(checked.read, door.heads(), checked.faults);
    door.check(table, books, checked, progress);
    checked.faults.SortByLine();
    return checked;
}

void RequireYear(const std::string& checkedFor) {
    qm::LoadCurrentYear();
    if (qm::shared().FinYear != checkedFor)
        Fail("the file was checked for " + checkedFor + ", and another program has made " +
             qm::shared().FinYear + " the current year");
}

Fault NotWritten(int line, const basic::Error& error) {
    return {line, "", "could not be written (" + error.Description + "); nothing of the file was written"};
}

std::optional<Fault> WriteImport(const ImportFile& file, const CheckProgress& progress) {
    const QuietBoxes boxes;
    int line = 1;
    std::size_t done = 0;
    try {
        AllOrNothing([&] {
            RequireYear(file.year);
            for (const ImportRow& row : file.rows) {
                line = row.line;
                row.write();
                progress(++done, file.rows.size());
            }
            return true;
        });
    } catch (const basic::Error& error) {
        return NotWritten(line, error);
    }
    return {};
}

}  // namespace host
