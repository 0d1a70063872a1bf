#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/LedgerRows.h"
#include "core/clQm.h"
#include "host/doors/CsvTable.h"
#include "host/doors/Faults.h"
#include "host/doors/JournalFile.h"
#include "host/doors/VoucherFile.h"

namespace host {

// A journal that was checked as a whole against the books: only one without faults may be written.
struct JournalImport {
    struct Ledger {
        int line = 0;
        qm::LedgerEntry entry;
    };
    struct Opening {
        int line = 0;
        std::string ledgerId, figure;
        qm::LedgerSide side = qm::LedgerSide::Debit;
    };
    std::int16_t year = 0;                 // the current one, by its first year
    std::vector<Ledger> ledgers;           // new ones, with their openings
    std::vector<Opening> openings;         // of ledgers that stand and whose openings differ
    VoucherFile vouchers;                  // with a file of `export`, under its numbers where those are free
    Faults faults;                         // all, in the order of the lines
    std::vector<JournalTransaction> read;  // as they stand in the file
};

// Checks a journal by the rules of Ledger_Master, of the openings and of voucher files; the books are only
// read. An account goes to the ledger that `map` (a file of comma-separated text with the columns account and
// ledger; none where it is empty) or its own tag names, else to the one of its name, or of the name behind
// "Group:". One that is declared so and does not stand becomes a new ledger of that primary group. A
// transaction without a type is a Journal. Raises for a file that cannot be read and what the books raise.
JournalImport CheckJournal(const std::filesystem::path& file, const std::filesystem::path& map,
                           qm::clQm& books, const CheckProgress& progress);

// Writes ledgers, openings and vouchers in one transaction, or nothing; the fault says why.
std::optional<Fault> WriteJournalImport(const JournalImport& journal, qm::clQm& books,
                                        const CheckProgress& progress);

}  // namespace host
