#include "platform/com/Variant.h"

#include <charconv>
#include <limits>
#include <string>

#include "platform/basic/Error.h"
#include "platform/com/Bstr.h"

extern "C" {

void VariantInit(VARIANT* value) {
    if (value != nullptr) *value = VARIANT{};
}

HRESULT VariantClear(VARIANT* value) {
    if (value == nullptr) return E_INVALIDARG;
    if (value->vt == VT_BSTR) SysFreeString(value->bstrVal);
    if ((value->vt == VT_DISPATCH || value->vt == VT_UNKNOWN) && value->punkVal != nullptr)
        value->punkVal->Release();
    if (value->vt == (VT_ARRAY | VT_VARIANT)) SafeArrayDestroy(value->parray);
    VariantInit(value);
    return S_OK;
}

}  // extern "C"

namespace com {
namespace {

constexpr double CurrencyUnit = 10000;

[[noreturn]] void Mismatch() {
    basic::Raise(basic::error::TypeMismatch, "com");
}

template <class Number>
basic::Value NumberOf(Number number) {
    if (number >= 0 ? static_cast<std::uint64_t>(number) <= std::numeric_limits<std::int32_t>::max()
                    : static_cast<std::int64_t>(number) >= std::numeric_limits<std::int32_t>::min())
        return static_cast<std::int32_t>(number);
    return static_cast<double>(number);
}

// Reads what `data` points at: the data of a VARIANT itself, or what it refers to.
template <class T>
const T& At(const void* data) {
    return *static_cast<const T*>(data);
}

// Read as its digits say, so to the nearest double.
double DecimalOf(const DECIMAL& decimal) {
    constexpr int MostScale = 28, Ten = 10;
    constexpr std::uint8_t Below0 = 0x80;
    if (decimal.scale > MostScale || (decimal.sign & ~Below0) != 0) Mismatch();
    std::string digits;
    __extension__ using Whole = unsigned __int128;
    for (Whole left = static_cast<Whole>(decimal.Hi32) << 64 | decimal.Lo64; left != 0; left /= Ten)
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(left % Ten)));
    digits = "0" + digits + "E-" + std::to_string(decimal.scale);
    double number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return decimal.sign == 0 ? number : -number;
}

basic::Value DefaultOf(IDispatch* object) {
    if (object == nullptr) basic::Raise(basic::error::ObjectNotSet, "com");
    DISPPARAMS none{};
    Variant held;
    if (FAILED(
            object->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &held, nullptr, nullptr)))
        basic::Raise(basic::error::NotSupported, "com");
    if (held.vt == VT_DISPATCH) Mismatch();
    return ValueOf(held);
}

basic::Value Read(VARTYPE type, const void* data) {
    switch (type) {
        case VT_EMPTY:
        case VT_NULL:
            return basic::Null{};
        case VT_I1:
            return static_cast<std::int16_t>(At<std::int8_t>(data));
        case VT_UI1:
            return static_cast<std::int16_t>(At<std::uint8_t>(data));
        case VT_I2:
            return At<std::int16_t>(data);
        case VT_UI2:
            return static_cast<std::int32_t>(At<std::uint16_t>(data));
        case VT_I4:
        case VT_INT:
            return At<std::int32_t>(data);
        case VT_UI4:
        case VT_UINT:
            return NumberOf(At<std::uint32_t>(data));
        case VT_I8:
            return NumberOf(At<std::int64_t>(data));
        case VT_UI8:
            return NumberOf(At<std::uint64_t>(data));
        case VT_R4:
            return static_cast<double>(At<float>(data));
        case VT_R8:
            return At<double>(data);
        case VT_CY:
            return static_cast<double>(At<std::int64_t>(data)) / CurrencyUnit;
        case VT_DECIMAL:
            return DecimalOf(At<DECIMAL>(data));
        case VT_DATE:
            return basic::Date{At<DATE>(data)};
        case VT_BOOL:
            return At<VARIANT_BOOL>(data) != VARIANT_FALSE;
        case VT_BSTR:
            return TextOf(At<BSTR>(data));
        case VT_DISPATCH:
            return DefaultOf(At<IDispatch*>(data));
        default:
            Mismatch();
    }
}

}  // namespace

const VARIANT& Target(const VARIANT& value) {
    if (value.vt != (VT_VARIANT | VT_BYREF)) return value;
    if (value.pvarVal == nullptr || value.pvarVal->vt == (VT_VARIANT | VT_BYREF)) Mismatch();
    return *value.pvarVal;
}

bool IsMissing(const VARIANT& value) {
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

basic::Value ValueOf(const VARIANT& value) {
    const VARIANT& target = Target(value);
    if (target.vt == VT_DECIMAL) return Read(VT_DECIMAL, &target);
    if ((target.vt & VT_BYREF) == 0) return Read(target.vt, &target.lVal);
    if (target.byref == nullptr) Mismatch();
    return Read(static_cast<VARTYPE>(target.vt & ~VT_BYREF), target.byref);
}

void Store(const basic::Value& value, VARIANT& to) {
    VariantInit(&to);
    to.vt = VT_NULL;
    if (const auto* truth = value.As<bool>()) {
        to.boolVal = BoolOf(*truth);
        to.vt = VT_BOOL;
    } else if (const auto* integer = value.As<std::int16_t>()) {
        to.iVal = *integer;
        to.vt = VT_I2;
    } else if (const auto* number = value.As<std::int32_t>()) {
        to.lVal = *number;
        to.vt = VT_I4;
    } else if (const auto* real = value.As<double>()) {
        to.dblVal = *real;
        to.vt = VT_R8;
    } else if (const auto* date = value.As<basic::Date>()) {
        to.date = date->Serial;
        to.vt = VT_DATE;
    } else if (const auto* text = value.As<std::string>()) {
        to.bstrVal = MakeBstr(*text);
        to.vt = VT_BSTR;
    }
}

void Convert(const VARIANT& value, VARTYPE type, VARIANT& to) {
    VariantInit(&to);
    if (Target(value).vt != VT_EMPTY) {
        const basic::Value held = ValueOf(value);
        switch (type) {
            case VT_BOOL:
                to.boolVal = BoolOf(basic::ToBoolean(held));
                break;
            case VT_I2:
                to.iVal = basic::ToInteger(held);
                break;
            case VT_I4:
                to.lVal = basic::ToLong(held);
                break;
            case VT_R8:
                to.dblVal = basic::ToDouble(held);
                break;
            case VT_DATE:
                to.date = basic::ToDate(held).Serial;
                break;
            case VT_BSTR:
                to.bstrVal = MakeBstr(basic::ToText(held));
                break;
            default:
                Mismatch();
        }
    }
    to.vt = type;
}

}  // namespace com
