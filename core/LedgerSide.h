#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace qm {

// The two sides of an entry and of a balance. The numbers are the codes that PostVoucherRow takes.
enum class LedgerSide : std::int32_t { Debit = 0, Credit = 1 };

constexpr std::int32_t CodeOf(LedgerSide side) {
    return static_cast<std::int32_t>(side);
}
LedgerSide Other(LedgerSide side);

// "D" and "C": Bal_Type, and the sides of the class. None for any other letter.
std::optional<LedgerSide> SideOfLetter(std::string_view letter);
const char* LetterOf(LedgerSide side);

// "Dr." and "Cr.": the side of a voucher's line on the screen. None for any other text, such as that of the
// spare line.
std::optional<LedgerSide> SideOfMark(std::string_view mark);
const char* MarkOf(LedgerSide side);

}  // namespace qm
