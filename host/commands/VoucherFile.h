#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/clQm.h"
#include "host/commands/VoucherCells.h"
#include "host/make/CsvFile.h"

namespace host {

struct VoucherRow {
    int line = 0;          // of the file
    std::int32_t day = 0;  // day number
    std::string category;  // "R", "P", "C" or "J"
    std::string side;      // "D" or "C"
    std::int32_t ledger = 0;
    std::string ledgerName;
    Amount amount;
    std::string narration;
};

struct FileVoucher {
    std::string key;  // the file's own number of the voucher
    std::vector<VoucherRow> rows;
};

struct Fault {
    int line = 0;
    std::string column;
    std::string reason;
};

// A file of vouchers with the columns voucher, date, type, side, ledger, amount, narration, checked as a
// whole: only a file without faults may be posted.
struct VoucherFile {
    std::vector<FileVoucher> vouchers;  // in the order of their first rows
    std::vector<Fault> faults;          // in the order of the lines, the first thousand found
    std::size_t faultCount = 0;         // of all
    std::size_t RowCount() const;
};

// Hears how many of the rows are done.
using CheckProgress = std::function<void(std::size_t done, std::size_t all)>;

// Checks the rows of such a file, its header the first of them. `year` is the first year of the financial
// year that the dates must lie in.
VoucherFile CheckVouchers(
    const std::vector<CsvRow>& rows, qm::clQm& books, std::int16_t year,
    DateOrder order = DateOrder::DayFirst, const CheckProgress& progress = [](std::size_t, std::size_t) {});

// The same of a file. What is no comma-separated text at all is one fault, at the line where it shows.
VoucherFile ReadVoucherFile(const std::filesystem::path& file, qm::clQm& books, std::int16_t year,
                            DateOrder order, const CheckProgress& progress);

}  // namespace host
