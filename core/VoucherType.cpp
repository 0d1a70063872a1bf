#include "core/VoucherType.h"

namespace qm {
namespace {

constexpr VoucherType AsListed[] = {VoucherType::Receipt, VoucherType::Payment, VoucherType::Contra,
                                    VoucherType::Journal};

template <class Test>
std::optional<VoucherType> Find(const Test& test) {
    for (const VoucherType type : AsListed)
        if (test(type)) return type;
    return std::nullopt;
}

}  // namespace

const char* WordOf(VoucherType type) {
    switch (type) {
        case VoucherType::Payment:
            return "Payment";
        case VoucherType::Receipt:
            return "Receipt";
        case VoucherType::Contra:
            return "Contra";
        default:
            return "Journal";
    }
}

std::optional<VoucherType> TypeOfWord(std::string_view word) {
    return Find([&](VoucherType type) { return word == WordOf(type); });
}

std::optional<VoucherType> TypeOfLetter(std::string_view letter) {
    return Find([&](VoucherType type) { return letter == std::string_view(WordOf(type), 1); });
}

std::optional<VoucherType> TypeOfCode(std::int32_t code) {
    return Find([&](VoucherType type) { return code == CodeOf(type); });
}

const std::vector<std::string>& VoucherTypeWords() {
    static const std::vector<std::string> words = [] {
        std::vector<std::string> all;
        for (const VoucherType type : AsListed) all.emplace_back(WordOf(type));
        return all;
    }();
    return words;
}

}  // namespace qm
