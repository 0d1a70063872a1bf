#include "platform/com/SafeArray.h"

#include <cstdlib>
#include <memory>
#include <new>

#include "platform/basic/Error.h"
#include "platform/com/Bstr.h"
#include "platform/com/ErrorInfo.h"
#include "platform/com/Variant.h"

namespace com {
namespace {

constexpr std::uint16_t HoldsVariants = 0x800;

const SAFEARRAYBOUND* BoundOf(const SAFEARRAY* array, std::uint32_t dimension) {
    if (array == nullptr || dimension < 1 || dimension > array->cDims) return nullptr;
    return &array->rgsabound[array->cDims - dimension];
}

std::size_t CountOf(const SAFEARRAY& array) {
    std::size_t count = 1;
    for (std::uint32_t dimension = 1; dimension <= array.cDims; ++dimension)
        count *= BoundOf(&array, dimension)->cElements;
    return count;
}

VARIANT* ElementsOf(const SAFEARRAY& array) {
    return static_cast<VARIANT*>(array.pvData);
}

struct Destroy {
    void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};

void* Room(std::size_t count, std::size_t size) {
    void* room = std::calloc(count == 0 ? 1 : count, size);
    if (room == nullptr) throw std::bad_alloc();
    return room;
}

// All elements empty.
std::unique_ptr<SAFEARRAY, Destroy> MakeTable(std::size_t first, std::size_t second) {
    std::unique_ptr<SAFEARRAY, Destroy> array(
        static_cast<SAFEARRAY*>(Room(1, sizeof(SAFEARRAY) + sizeof(SAFEARRAYBOUND))));
    array->cDims = 2;
    array->fFeatures = HoldsVariants;
    array->cbElements = sizeof(VARIANT);
    array->rgsabound[0] = {static_cast<std::uint32_t>(second), 0};
    (&array->rgsabound[0])[1] = {static_cast<std::uint32_t>(first), 0};
    array->pvData = Room(first * second, sizeof(VARIANT));
    return array;
}

// The place of an element, the first dimension running fastest; nothing beyond the bounds.
const VARIANT* Find(const SAFEARRAY& array, const std::int32_t* indices) {
    std::size_t at = 0, stride = 1;
    for (std::uint32_t dimension = 1; dimension <= array.cDims; ++dimension) {
        const SAFEARRAYBOUND& bound = *BoundOf(&array, dimension);
        const std::int64_t index = static_cast<std::int64_t>(indices[dimension - 1]) - bound.lLbound;
        if (index < 0 || index >= bound.cElements) return nullptr;
        at += static_cast<std::size_t>(index) * stride;
        stride *= bound.cElements;
    }
    return ElementsOf(array) + at;
}

void Copy(const VARIANT& from, VARIANT& to) {
    to = from;
    if (from.vt == VT_BSTR) to.bstrVal = MakeBstr(TextOf(from.bstrVal));
    if ((from.vt == VT_DISPATCH || from.vt == VT_UNKNOWN) && from.punkVal != nullptr) from.punkVal->AddRef();
}

}  // namespace

void StoreTable(const std::vector<basic::Value>& values, std::size_t firstDimension, VARIANT& to) {
    auto array = MakeTable(firstDimension, firstDimension == 0 ? 0 : values.size() / firstDimension);
    VARIANT* element = ElementsOf(*array);
    for (const basic::Value& value : values) Store(value, *element++);
    to.vt = VT_ARRAY | VT_VARIANT;
    to.parray = array.release();
}

std::span<const VARIANT> ListOf(const VARIANT& array) {
    const SAFEARRAY* held =
        (array.vt & VT_BYREF) != 0 ? *static_cast<SAFEARRAY* const*>(array.byref) : array.parray;
    if ((array.vt & ~VT_BYREF) != (VT_ARRAY | VT_VARIANT) || held == nullptr || held->cDims != 1)
        basic::Raise(basic::error::TypeMismatch, "com");
    return {ElementsOf(*held), CountOf(*held)};
}

}  // namespace com

extern "C" {

std::uint32_t SafeArrayGetDim(SAFEARRAY* array) {
    return array == nullptr ? 0 : array->cDims;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, std::uint32_t dimension, std::int32_t* bound) {
    const SAFEARRAYBOUND* found = com::BoundOf(array, dimension);
    if (bound == nullptr) return E_POINTER;
    if (found == nullptr) return DISP_E_BADINDEX;
    *bound = found->lLbound;
    return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, std::uint32_t dimension, std::int32_t* bound) {
    const HRESULT outcome = SafeArrayGetLBound(array, dimension, bound);
    if (SUCCEEDED(outcome))
        *bound += static_cast<std::int32_t>(com::BoundOf(array, dimension)->cElements) - 1;
    return outcome;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, const std::int32_t* indices, void* element) {
    if (array == nullptr || indices == nullptr || element == nullptr) return E_POINTER;
    if (array->fFeatures != com::HoldsVariants) return DISP_E_BADVARTYPE;
    const VARIANT* found = com::Find(*array, indices);
    if (found == nullptr) return DISP_E_BADINDEX;
    return com::Guarded([&] { com::Copy(*found, *static_cast<VARIANT*>(element)); });
}

HRESULT SafeArrayDestroy(SAFEARRAY* array) {
    if (array == nullptr) return S_OK;
    if (array->fFeatures != com::HoldsVariants) return DISP_E_BADVARTYPE;
    for (std::size_t i = 0; array->pvData != nullptr && i < com::CountOf(*array); ++i)
        VariantClear(com::ElementsOf(*array) + i);
    std::free(array->pvData);
    std::free(array);
    return S_OK;
}

}  // extern "C"
