#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/clQm.h"
#include "host/doors/CsvTable.h"
#include "host/doors/Faults.h"
#include "host/doors/LedgerBook.h"
#include "host/doors/VoucherCells.h"
#include "host/make/CsvFile.h"

namespace host {

// The columns of such a file, in their order.
inline constexpr std::array<const char*, 7> VoucherColumns{"voucher", "date",   "type",     "side",
                                                           "ledger",  "amount", "narration"};

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
    std::int32_t wanted = 0;  // the number that it takes where none as high stands; 0 for the next
};

// A file of vouchers with the columns voucher, date, type, side, ledger, amount, narration, checked as a
// whole: only a file without faults may be posted.
struct VoucherFile {
    std::vector<FileVoucher> vouchers;  // in the order of their first rows
    Faults faults;                      // in the order of the lines
    std::size_t RowCount() const;
};

// Checks the rows of such a file, its header the first of them. `year` is the first year of the financial
// year that the dates must lie in.
VoucherFile CheckVouchers(
    const std::vector<CsvRow>& rows, qm::clQm& books, std::int16_t year,
    DateOrder order = DateOrder::DayFirst, const CheckProgress& progress = [](std::size_t, std::size_t) {});

// The same against the ledgers given, some of which may be expected only.
VoucherFile CheckVouchers(const std::vector<CsvRow>& rows, qm::clQm& books, const LedgerBook& ledgers,
                          std::int16_t year, DateOrder order, const CheckProgress& progress);

// The same of a file. What is no comma-separated text at all is one fault, at the line where it shows.
VoucherFile ReadVoucherFile(const std::filesystem::path& file, qm::clQm& books, std::int16_t year,
                            DateOrder order, const CheckProgress& progress);

}  // namespace host
