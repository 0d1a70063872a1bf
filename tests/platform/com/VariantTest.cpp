#include <cstring>
#include <limits>

#include <gtest/gtest.h>

#include "platform/com/Bstr.h"
#include "platform/com/Variant.h"
#include "tests/support/ErrorOf.h"

namespace {

using basic::Value;
using com::Variant;

template <class T>
VARIANT Of(VARTYPE type, T data) {
    VARIANT value{};
    value.vt = type;
    std::memcpy(&value.lVal, &data, sizeof data);
    return value;
}

std::int32_t NumberOfError(const VARIANT& value, VARTYPE type) {
    return test::ErrorOf([&] {
        VARIANT to;
        com::Convert(value, type, to);
    });
}

TEST(Variant, EveryKindReadsAsItsValueBothDirectlyAndByReference) {
    constexpr auto Big = std::numeric_limits<std::uint32_t>::max();
    const BSTR text = com::MakeBstr("Ünder £5");
    const struct {
        VARIANT given;
        Value expected;
    } cases[] = {
        {Of<std::int8_t>(VT_I1, -5), std::int16_t{-5}},
        {Of<std::uint8_t>(VT_UI1, 250), std::int16_t{250}},
        {Of<std::int16_t>(VT_I2, -300), std::int16_t{-300}},
        {Of<std::uint16_t>(VT_UI2, 65535), 65535},
        {Of<std::int32_t>(VT_I4, -70000), -70000},
        {Of<std::int32_t>(VT_INT, 7), 7},
        {Of<std::uint32_t>(VT_UI4, 7), 7},
        {Of<std::uint32_t>(VT_UINT, Big), 4294967295.0},
        {Of<std::int64_t>(VT_I8, -2147483648LL), std::numeric_limits<std::int32_t>::min()},
        {Of<std::int64_t>(VT_I8, -2147483649LL), -2147483649.0},
        {Of<std::uint64_t>(VT_UI8, 2147483648ULL), 2147483648.0},
        {Of<float>(VT_R4, 0.5F), 0.5},
        {Of<double>(VT_R8, 1500.5), 1500.5},
        {Of<std::int64_t>(VT_CY, 15005000), 1500.5},
        {Of<DATE>(VT_DATE, 36982.25), basic::Date{36982.25}},
        {Of<VARIANT_BOOL>(VT_BOOL, VARIANT_TRUE), true},
        {Of<VARIANT_BOOL>(VT_BOOL, 1), true},
        {Of<BSTR>(VT_BSTR, text), "Ünder £5"},
        {Of<BSTR>(VT_BSTR, nullptr), ""},
        {Of(VT_NULL, 0), basic::Null{}},
        {Of(VT_EMPTY, 0), basic::Null{}},
    };
    for (auto [given, expected] : cases) {
        SCOPED_TRACE(given.vt);
        EXPECT_EQ(com::ValueOf(given), expected);
        const VARIANT reference = Of<void*>(static_cast<VARTYPE>(given.vt | VT_BYREF), &given.lVal);
        EXPECT_EQ(com::ValueOf(reference), expected);
        EXPECT_EQ(com::ValueOf(Of<const VARIANT*>(VT_VARIANT | VT_BYREF, &reference)), expected);
    }
    SysFreeString(text);
}

// The digits count, whatever the scale: 1234567.89 is no sum of tenths and hundredths.
TEST(Variant, ADecimalReadsAsTheNearestNumber) {
    const struct {
        DECIMAL given;
        double expected;
    } cases[] = {
        {{VT_DECIMAL, 2, 0, 0, 123456789}, 1234567.89},
        {{VT_DECIMAL, 1, 0x80, 0, 3}, -0.3},
        {{VT_DECIMAL, 0, 0, 0, 0}, 0},
        {{VT_DECIMAL, 28, 0, 0, 1}, 1e-28},
        {{VT_DECIMAL, 4, 0, 1, 0}, 1844674407370955.1616},
        {{VT_DECIMAL, 0, 0x80, 0xFFFFFFFF, 0xFFFFFFFFFFFFFFFF}, -79228162514264337593543950335.0},
    };
    for (auto [given, expected] : cases) {
        VARIANT value{};
        std::memcpy(&value, &given, sizeof given);
        EXPECT_EQ(com::ValueOf(value), Value(expected));
        EXPECT_EQ(com::ValueOf(Of<void*>(VT_DECIMAL | VT_BYREF, &given)), Value(expected));
        Variant converted;
        com::Convert(value, VT_R8, converted);
        EXPECT_EQ(converted.dblVal, expected);
    }
    for (const DECIMAL& wrong : {DECIMAL{VT_DECIMAL, 29, 0, 0, 1}, DECIMAL{VT_DECIMAL, 0, 1, 0, 1}}) {
        VARIANT value{};
        std::memcpy(&value, &wrong, sizeof wrong);
        EXPECT_EQ(NumberOfError(value, VT_R8), basic::error::TypeMismatch);
    }
}

TEST(Variant, WhatTheLowerLayersHoldComesBackAfterStoring) {
    for (const Value& value : {Value{}, Value{true}, Value{std::int16_t{-1}}, Value{36980}, Value{0.1},
                               Value{basic::Date{36982}}, Value{"Rent"}}) {
        Variant stored;
        com::Store(value, stored);
        EXPECT_EQ(com::ValueOf(stored), value);
    }
    Variant truth;
    com::Store(true, truth);
    EXPECT_EQ(truth.boolVal, VARIANT_TRUE);
}

TEST(Variant, ArgumentsConvertAsTheClassicConversionsDo) {
    const struct {
        Value given;
        VARTYPE type;
        Value expected;
    } cases[] = {
        {"12", VT_I4, 12},
        {2.5, VT_I4, 2},
        {3.5, VT_I2, std::int16_t{4}},
        {1500.5, VT_BSTR, "1500.5"},
        {true, VT_R8, -1.0},
        {"1,500.5", VT_R8, 1500.5},
        {36982, VT_DATE, basic::Date{36982}},
        {"01-Apr-2001", VT_DATE, basic::Date{36982}},
        {"True", VT_BOOL, true},
    };
    for (const auto& [given, type, expected] : cases) {
        Variant from, to;
        com::Store(given, from);
        com::Convert(from, type, to);
        EXPECT_EQ(com::ValueOf(to), expected) << type;
    }
    for (const VARTYPE type : {VT_I2, VT_I4, VT_R8, VT_DATE, VT_BOOL, VT_BSTR}) {
        Variant to;
        com::Convert(VARIANT{}, type, to);
        EXPECT_EQ(to.vt, type);
        EXPECT_EQ(to.llVal, 0) << "Empty reads as nothing at all";
    }
}

TEST(Variant, WhatCannotBeConvertedIsRefusedByTheClassicNumber) {
    const BSTR text = com::MakeBstr("abc");
    VARIANT self{};
    self = Of<VARIANT*>(VT_VARIANT | VT_BYREF, &self);
    EXPECT_EQ(NumberOfError(Of<BSTR>(VT_BSTR, text), VT_I4), 13);
    EXPECT_EQ(NumberOfError(Of<double>(VT_R8, 3e9), VT_I4), 6);
    EXPECT_EQ(NumberOfError(Of(VT_I4, 40000), VT_I2), 6);
    EXPECT_EQ(NumberOfError(Of(VT_NULL, 0), VT_BSTR), 94);
    EXPECT_EQ(NumberOfError(Of<void*>(VT_I4 | VT_BYREF, nullptr), VT_I4), 13);
    EXPECT_EQ(NumberOfError(Of<IDispatch*>(VT_DISPATCH, nullptr), VT_BSTR), 91);
    EXPECT_EQ(NumberOfError(Of(VT_ERROR, DISP_E_PARAMNOTFOUND), VT_I4), 13);
    EXPECT_EQ(NumberOfError(self, VT_I4), 13) << "a reference to itself must not run for ever";
    SysFreeString(text);
}

TEST(Variant, ClearingFreesAndEmptiesButLeavesWhatIsReferredTo) {
    BSTR text = com::MakeBstr("kept");
    VARIANT reference = Of<BSTR*>(VT_BSTR | VT_BYREF, &text);
    EXPECT_EQ(VariantClear(&reference), S_OK);
    EXPECT_EQ(reference.vt, VT_EMPTY);
    EXPECT_EQ(com::TextOf(text), "kept");
    VARIANT own = Of<BSTR>(VT_BSTR, text);
    EXPECT_EQ(VariantClear(&own), S_OK);
    EXPECT_EQ(own.bstrVal, nullptr);
    EXPECT_EQ(VariantClear(nullptr), E_INVALIDARG);
}

}  // namespace
