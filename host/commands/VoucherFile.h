#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "core/clQm.h"
#include "host/make/CsvFile.h"

namespace host {

// The ledgers that can be posted to in the year in force, by number and by name without regard to case.
class LedgerBook {
  public:
    explicit LedgerBook(qm::clQm& books);

    struct Entry {
        std::int32_t id = 0;
        std::string name;
    };
    // What a cell of the file names: a ledger's number, or its name. nullptr with a reason if it names none,
    // or two.
    const Entry* Find(const std::string& cell, std::string& reason) const;

  private:
    std::map<std::int32_t, Entry> byId_;
    std::multimap<std::string, std::int32_t> byFoldedName_;
};

struct VoucherRow {
    int line = 0;          // of the file
    std::int32_t day = 0;  // day number
    std::string category;  // "R", "P", "C" or "J"
    std::string side;      // "D" or "C"
    std::int32_t ledger = 0;
    std::string ledgerName;
    double amount = 0;  // rupees, above 0
    std::string narration;
};

struct FileVoucher {
    std::string key;  // the file's own number of the voucher
    std::vector<VoucherRow> rows;
};

struct Fault {
    int line = 0;
    std::string column;  // "" for the whole row
    std::string reason;
};

// A file of vouchers with the columns voucher, date, type, side, ledger, amount, narration, checked as a
// whole: only a file without faults may be posted.
struct VoucherFile {
    std::vector<FileVoucher> vouchers;  // in the order of their first rows
    std::vector<Fault> faults;          // in the order of the lines
    std::size_t RowCount() const;
};

// Checks the rows of such a file, its header the first of them. `year` is the first year of the financial
// year that the dates must lie in.
VoucherFile CheckVouchers(const std::vector<CsvRow>& rows, qm::clQm& books, std::int16_t year);

VoucherFile ReadVoucherFile(const std::filesystem::path& file, qm::clQm& books, std::int16_t year);

}  // namespace host
