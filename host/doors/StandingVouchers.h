#pragma once

#include <cstdint>
#include <vector>

#include "host/doors/VoucherFile.h"

namespace host {

// For each voucher of the file the number of one that stands in the year's table already with the same day,
// type, ledgers and amounts, 0 where there is none. Two alike in the file need two in the books.
std::vector<std::int32_t> StandingVouchers(const VoucherFile& file, std::int16_t year);

}  // namespace host
