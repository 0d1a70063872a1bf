#pragma once

#include "platform/basic/Value.h"
#include "platform/com/Automation.h"

namespace com {

// What a VARIANT_BOOL holds for a truth.
constexpr VARIANT_BOOL BoolOf(bool truth) {
    return truth ? VARIANT_TRUE : VARIANT_FALSE;
}

// A VARIANT that is cleared at its end.
struct Variant : VARIANT {
    Variant() { VariantInit(this); }
    ~Variant() { VariantClear(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
};

// The value behind any references; a reference to nothing raises 13.
const VARIANT& Target(const VARIANT& value);

bool IsMissing(const VARIANT& value);  // a left-out optional argument

// The value as the lower layers know it. Empty reads Null; integers beyond 32 bits, currency and decimals
// become doubles; an object gives its default member. Raises 13 "Type mismatch" for kinds that have no such
// value.
basic::Value ValueOf(const VARIANT& value);

// `to` is overwritten, not freed before. Gives Null, a boolean, 16- or 32-bit integer, double, date or text.
void Store(const basic::Value& value, VARIANT& to);

// `to` takes the value converted to a boolean, 16- or 32-bit integer, double, date or text, as the classic
// conversions do; Empty reads as 0, False or "". Raises 94 for Null, 13, or 6 "Overflow".
void Convert(const VARIANT& value, VARTYPE type, VARIANT& to);

}  // namespace com
