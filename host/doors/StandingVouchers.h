#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/doors/VoucherFile.h"

namespace host {

// For each voucher of the file the number of one that stands in the year's table already with the same day,
// type, ledgers and amounts, 0 where there is none. Two alike in the file need two in the books.
std::vector<std::int32_t> StandingVouchers(const VoucherFile& file, std::int16_t year);

// The same told of the file as a whole.
struct Standing {
    std::size_t Count = 0;  // of its vouchers that stand
    bool All = false;       // it was posted before
    std::string Text;       // "2 of 5 vouchers stand in the books already, ...", "" where none does
};
Standing StandingOf(const VoucherFile& file, std::int16_t year);

}  // namespace host
