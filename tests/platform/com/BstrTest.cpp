#include <cstring>

#include <gtest/gtest.h>

#include "platform/com/Bstr.h"

namespace {

TEST(Bstr, CarriesItsLengthInBytesBeforeTheTextAndANulBehindIt) {
    const BSTR text = SysAllocString(u"Dr");
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char*>(text) - 4, 4);
    EXPECT_EQ(bytes, 4U);
    EXPECT_EQ(SysStringLen(text), 2U);
    EXPECT_EQ(text[2], u'\0');
    SysFreeString(text);
}

TEST(Bstr, KeepsNulsInsideAndCharactersBeyondSixteenBits) {
    const BSTR inner = SysAllocStringLen(u"a\0b", 3);
    EXPECT_EQ(com::TextOf(inner), std::string("a\0b", 3));
    SysFreeString(inner);

    const BSTR wide = com::MakeBstr("₹ 5 \U0001F4D2");
    EXPECT_EQ(SysStringLen(wide), 6U);
    EXPECT_EQ(com::TextOf(wide), "₹ 5 \U0001F4D2");
    SysFreeString(wide);
}

TEST(Bstr, NullIsTheEmptyText) {
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0U);
    EXPECT_EQ(com::TextOf(nullptr), "");
    SysFreeString(nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0xFFFFFFFFU), nullptr) << "a length that would wrap around";
}

}  // namespace
