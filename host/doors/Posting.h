#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/doors/VoucherFile.h"

namespace host {

struct PostedVoucher {
    std::string key;          // in the file
    std::int32_t number = 0;  // in the books
};

struct PostingResult {
    std::vector<PostedVoucher> posted;  // what stands
    // None if all of the file was posted; else which row failed and what became of its voucher.
    std::optional<Fault> failure;
};

// Hears the rows done so far; says False to have the posting stop before the next voucher.
using PostingProgress = std::function<bool(std::size_t)>;

// Posts the vouchers one after the other through the class, each row a transaction on the disk. Before each
// the current year is looked at: where it is no longer `year`, the posting stops. It also stops at the first
// row that fails, and takes back the rows of its voucher that were posted, unless rows that it did not write
// bear the number by then: two writers can draw the same one.
PostingResult PostVouchers(qm::clQm& books, const VoucherFile& file, std::int16_t year,
                           const PostingProgress& progress);

// The same in one transaction: all of the file is posted, or nothing. Other programs cannot write meanwhile.
PostingResult PostAtOnce(qm::clQm& books, const VoucherFile& file, std::int16_t year,
                         const PostingProgress& progress);

}  // namespace host
