#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/commands/VoucherFile.h"

namespace host {

struct PostedVoucher {
    std::string key;          // in the file
    std::int32_t number = 0;  // in the books
};

struct PostingResult {
    std::vector<PostedVoucher> posted;  // what stands
    std::string
        failure;  // "" if all of the file was posted; else which row failed and what became of its voucher
};

// Posts the vouchers one after the other through the class. Stops at the first row that fails and takes back
// the rows of its voucher that were posted, unless rows that it did not write bear the number by then: two
// writers can draw the same one. `progress` hears the rows done so far.
PostingResult PostVouchers(qm::clQm& books, const VoucherFile& file, std::int16_t year,
                           const std::function<void(std::size_t)>& progress);

}  // namespace host
