#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qm {

// The types of a voucher. The numbers are the codes that PostVoucherRow takes; the tables and the screens
// know a type by its word, the class by the word's first letter.
enum class VoucherType : std::int32_t { Journal = 0, Payment = 1, Receipt = 2, Contra = 3 };

constexpr std::int32_t CodeOf(VoucherType type) {
    return static_cast<std::int32_t>(type);
}
const char* WordOf(VoucherType type);  // "Journal"

// Each gives none for what is no type.
std::optional<VoucherType> TypeOfWord(std::string_view word);
std::optional<VoucherType> TypeOfLetter(std::string_view letter);  // "J", "P", "R", "C"
std::optional<VoucherType> TypeOfCode(std::int32_t code);

// In the order in which the screens list them: "Receipt", "Payment", "Contra", "Journal".
const std::vector<std::string>& VoucherTypeWords();

}  // namespace qm
