#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/clQm.h"
#include "host/doors/CsvTable.h"
#include "host/doors/Faults.h"
#include "host/doors/Import.h"
#include "host/doors/JournalImport.h"
#include "host/doors/StandingVouchers.h"
#include "host/doors/VoucherCells.h"
#include "host/doors/VoucherFile.h"
#include "host/make/CsvFile.h"

namespace host {

// A file that is to go into the books, of whatever kind, checked as a whole against the current year: its
// rows as they were read, each fault, and what writes it. Only one without faults may be written.
class IncomingFile {
  public:
    struct Source {
        std::string kind;  // one of Kinds
        std::filesystem::path file;
        std::filesystem::path map = {};         // of a journal's accounts; empty for none
        DateOrder order = DateOrder::DayFirst;  // of vouchers
    };
    static const std::vector<std::string>& Kinds();  // "ledgers", "items", "openings", "vouchers", "journal"

    // Checks the file; the books are only read. Raises for a file that cannot be read or whose first line is
    // that of another kind, what the books raise, and what `progress` raises, which ends the check.
    IncomingFile(Source source, qm::clQm& books, const CheckProgress& progress);

    const Source& From() const { return source_; }
    const std::string& Year() const { return year_; }  // the current one, by its short form
    const std::vector<std::string>& Heads() const { return heads_; }
    const std::vector<CsvRow>& Rows() const { return rows_; }  // below the heads; none of what did not read
    const host::Faults& Faults() const;                        // in the order of the lines
    std::string Size() const;                                  // "12 vouchers, 24 rows"
    const host::Standing& Standing() const { return standing_; }  // of its vouchers, where it has no fault

    // Writes all of it in one transaction, while nobody else can write. Where anything fails, `progress`
    // included, nothing is written but the error log, and the fault says why.
    std::optional<Fault> Write(qm::clQm& books, const CheckProgress& progress) const;

  private:
    void ReadList(qm::clQm& books, const CheckProgress& progress);
    void ReadVouchers(qm::clQm& books, const CheckProgress& progress);
    void ReadJournal(qm::clQm& books, const CheckProgress& progress);
    void Take(std::vector<CsvRow> rows);
    const VoucherFile* Vouchers() const;  // null where the kind brings none

    Source source_;
    std::string year_;
    host::Standing standing_;
    std::vector<std::string> heads_;
    std::vector<CsvRow> rows_;
    std::variant<ImportFile, VoucherFile, JournalImport> checked_;
};

}  // namespace host
