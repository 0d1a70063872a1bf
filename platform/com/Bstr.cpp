#include "platform/com/Bstr.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include "platform/basic/Text.h"

namespace {

// The block holds 4 bytes of padding, the length in bytes, the text and a NUL; so the text is aligned to 8.
constexpr std::size_t Lead = 8;
constexpr std::size_t LengthAt = 4;

}  // namespace

extern "C" {

BSTR SysAllocStringLen(const char16_t* text, std::uint32_t length) {
    if (length > (std::numeric_limits<std::uint32_t>::max() - Lead) / sizeof(char16_t) - 1) return nullptr;
    const auto bytes = static_cast<std::uint32_t>(length * sizeof(char16_t));
    auto* block = static_cast<char*>(std::calloc(Lead + bytes + sizeof(char16_t), 1));
    if (block == nullptr) return nullptr;
    std::memcpy(block + LengthAt, &bytes, sizeof bytes);
    if (text != nullptr) std::memcpy(block + Lead, text, bytes);
    return reinterpret_cast<BSTR>(block + Lead);
}

BSTR SysAllocString(const char16_t* text) {
    if (text == nullptr) return nullptr;
    return SysAllocStringLen(text, static_cast<std::uint32_t>(std::char_traits<char16_t>::length(text)));
}

void SysFreeString(BSTR text) {
    if (text != nullptr) std::free(reinterpret_cast<char*>(text) - Lead);
}

std::uint32_t SysStringLen(BSTR text) {
    if (text == nullptr) return 0;
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char*>(text) - (Lead - LengthAt), sizeof bytes);
    return bytes / static_cast<std::uint32_t>(sizeof(char16_t));
}

}  // extern "C"

namespace com {

std::string TextOf(BSTR text) {
    return text == nullptr ? std::string() : basic::FromUtf16({text, SysStringLen(text)});
}

BSTR MakeBstr(std::string_view utf8) {
    const std::u16string wide = basic::ToUtf16(utf8);
    const BSTR made = SysAllocStringLen(wide.data(), static_cast<std::uint32_t>(wide.size()));
    if (made == nullptr) throw std::bad_alloc();
    return made;
}

}  // namespace com
