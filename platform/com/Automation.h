#pragma once

#include <cstddef>
#include <cstdint>

// The binary face between hosts and the class server: the layouts and virtual tables of 64-bit automation,
// for hosts of any language. Interfaces are plain virtual tables in declaration order, without a destructor;
// their members never throw and give an HRESULT. Whoever is handed an object releases it; whoever is handed a
// BSTR or a VARIANT frees it.

using HRESULT = std::int32_t;
using DISPID = std::int32_t;
using LCID = std::uint32_t;
using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;  // VARIANT_TRUE or VARIANT_FALSE
using DATE = double;                // days from 30-Dec-1899; the fraction is the time of day
using BSTR = char16_t*;  // UTF-16, a NUL behind it, its length in bytes in the 4 bytes before; null is ""

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};
using IID = GUID;
using CLSID = GUID;

inline bool operator==(const GUID& a, const GUID& b) {
    for (int i = 0; i < 8; ++i)
        if (a.Data4[i] != b.Data4[i]) return false;
    return a.Data1 == b.Data1 && a.Data2 == b.Data2 && a.Data3 == b.Data3;
}

inline constexpr HRESULT AsResult(std::uint32_t bits) {
    return static_cast<HRESULT>(bits);
}
inline constexpr bool SUCCEEDED(HRESULT result) {
    return result >= 0;
}
inline constexpr bool FAILED(HRESULT result) {
    return result < 0;
}

// A failure with one of the classic run-time numbers is FACILITY_CONTROL_ERROR plus the number, as 0x800A005B
// for 91.
inline constexpr HRESULT FACILITY_CONTROL_ERROR = AsResult(0x800A0000);

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = AsResult(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = AsResult(0x80004002);
inline constexpr HRESULT E_POINTER = AsResult(0x80004003);
inline constexpr HRESULT E_FAIL = AsResult(0x80004005);
inline constexpr HRESULT E_UNEXPECTED = AsResult(0x8000FFFF);
inline constexpr HRESULT E_OUTOFMEMORY = AsResult(0x8007000E);
inline constexpr HRESULT E_INVALIDARG = AsResult(0x80070057);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = AsResult(0x80040110);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = AsResult(0x80040111);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = AsResult(0x80040154);  // no registration bears the name
inline constexpr HRESULT SELFREG_E_CLASS = AsResult(0x80040201);      // the registration cannot be written
inline constexpr HRESULT CO_E_DLLNOTFOUND = AsResult(0x800401F8);     // the registered library does not load
inline constexpr HRESULT DISP_E_UNKNOWNINTERFACE = AsResult(0x80020001);
inline constexpr HRESULT DISP_E_MEMBERNOTFOUND = AsResult(0x80020003);
inline constexpr HRESULT DISP_E_PARAMNOTFOUND = AsResult(0x80020004);  // also what a missing argument holds
inline constexpr HRESULT DISP_E_TYPEMISMATCH = AsResult(0x80020005);
inline constexpr HRESULT DISP_E_UNKNOWNNAME = AsResult(0x80020006);
inline constexpr HRESULT DISP_E_NONAMEDARGS = AsResult(0x80020007);
inline constexpr HRESULT DISP_E_BADVARTYPE = AsResult(0x80020008);
inline constexpr HRESULT DISP_E_EXCEPTION = AsResult(0x80020009);
inline constexpr HRESULT DISP_E_OVERFLOW = AsResult(0x8002000A);
inline constexpr HRESULT DISP_E_BADINDEX = AsResult(0x8002000B);
inline constexpr HRESULT DISP_E_BADPARAMCOUNT = AsResult(0x8002000E);
inline constexpr HRESULT DISP_E_PARAMNOTOPTIONAL = AsResult(0x8002000F);

inline constexpr VARTYPE VT_EMPTY = 0;
inline constexpr VARTYPE VT_NULL = 1;
inline constexpr VARTYPE VT_I2 = 2;
inline constexpr VARTYPE VT_I4 = 3;
inline constexpr VARTYPE VT_R4 = 4;
inline constexpr VARTYPE VT_R8 = 5;
inline constexpr VARTYPE VT_CY = 6;  // a 64-bit integer of ten-thousandths
inline constexpr VARTYPE VT_DATE = 7;
inline constexpr VARTYPE VT_BSTR = 8;
inline constexpr VARTYPE VT_DISPATCH = 9;
inline constexpr VARTYPE VT_ERROR = 10;  // with DISP_E_PARAMNOTFOUND: the argument is missing
inline constexpr VARTYPE VT_BOOL = 11;
inline constexpr VARTYPE VT_VARIANT = 12;  // only with VT_BYREF
inline constexpr VARTYPE VT_UNKNOWN = 13;
inline constexpr VARTYPE VT_DECIMAL = 14;  // the VARIANT itself is the DECIMAL
inline constexpr VARTYPE VT_I1 = 16;
inline constexpr VARTYPE VT_UI1 = 17;
inline constexpr VARTYPE VT_UI2 = 18;
inline constexpr VARTYPE VT_UI4 = 19;
inline constexpr VARTYPE VT_I8 = 20;
inline constexpr VARTYPE VT_UI8 = 21;
inline constexpr VARTYPE VT_INT = 22;
inline constexpr VARTYPE VT_UINT = 23;
inline constexpr VARTYPE VT_ARRAY = 0x2000;  // added up: the data is a pointer to a SAFEARRAY of the type
inline constexpr VARTYPE VT_BYREF = 0x4000;  // added up: the data is a pointer to a value of the type

struct IUnknown;
struct IDispatch;
struct ITypeInfo;  // platform/com/ITypeInfo.h

struct SAFEARRAYBOUND {
    std::uint32_t cElements;
    std::int32_t lLbound;
};

// Several bounds stand one behind the other, the last dimension first; the elements stand with the first
// dimension running fastest.
struct SAFEARRAY {
    std::uint16_t cDims;
    std::uint16_t fFeatures;
    std::uint32_t cbElements;
    std::uint32_t cLocks;
    void* pvData;
    SAFEARRAYBOUND rgsabound[1];
};

// A whole number of 96 bits, divided by a power of ten.
struct DECIMAL {
    std::uint16_t wReserved;  // of a VARIANT: its type
    std::uint8_t scale;       // 0 to 28
    std::uint8_t sign;        // 0x80 below 0, else 0
    std::uint32_t Hi32;
    std::uint64_t Lo64;
};

struct VARIANT {
    VARTYPE vt;
    std::uint16_t wReserved1, wReserved2, wReserved3;
    union {
        std::int8_t cVal;
        std::uint8_t bVal;
        std::int16_t iVal;
        std::uint16_t uiVal;
        std::int32_t lVal;
        std::uint32_t ulVal;
        std::int64_t llVal;
        std::uint64_t ullVal;
        float fltVal;
        double dblVal;
        DATE date;
        VARIANT_BOOL boolVal;
        HRESULT scode;
        BSTR bstrVal;
        IUnknown* punkVal;
        IDispatch* pdispVal;
        VARIANT* pvarVal;
        SAFEARRAY* parray;
        void* byref;
        void* record[2];  // not used; gives the union its size
    };
};
static_assert(sizeof(GUID) == 16 && sizeof(DECIMAL) == 16);
static_assert(sizeof(SAFEARRAY) == 32 && offsetof(SAFEARRAY, pvData) == 16);
static_assert(sizeof(VARIANT) == 24 && offsetof(VARIANT, vt) == 0 && offsetof(VARIANT, lVal) == 8);

struct DISPPARAMS {
    VARIANT* rgvarg;  // the last argument first; the named ones stand before the others
    DISPID* rgdispidNamedArgs;
    std::uint32_t cArgs;
    std::uint32_t cNamedArgs;
};

struct EXCEPINFO {
    std::uint16_t wCode;
    std::uint16_t wReserved;
    BSTR bstrSource;
    BSTR bstrDescription;
    BSTR bstrHelpFile;
    std::uint32_t dwHelpContext;
    void* pvReserved;
    HRESULT (*pfnDeferredFillIn)(EXCEPINFO*);
    HRESULT scode;
};
static_assert(sizeof(DISPPARAMS) == 24 && sizeof(EXCEPINFO) == 64);

inline constexpr std::uint16_t DISPATCH_METHOD = 1;
inline constexpr std::uint16_t DISPATCH_PROPERTYGET = 2;
inline constexpr std::uint16_t DISPATCH_PROPERTYPUT = 4;
inline constexpr std::uint16_t DISPATCH_PROPERTYPUTREF = 8;

inline constexpr DISPID DISPID_VALUE = 0;  // the default member
inline constexpr DISPID DISPID_UNKNOWN = -1;
inline constexpr DISPID DISPID_PROPERTYPUT = -3;  // names the new value of a property
inline constexpr DISPID DISPID_NEWENUM = -4;      // gives an IEnumVARIANT

inline constexpr IID IID_NULL = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};
inline constexpr IID IID_IUnknown = {0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IClassFactory = {0x00000001, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IDispatch = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_ITypeInfo = {0x00020401, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IEnumVARIANT = {0x00020404, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IErrorInfo = {
    0x1CF2B120, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
inline constexpr IID IID_ISupportErrorInfo = {
    0xDF0B3D60, 0x548F, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};

struct IUnknown {
    virtual HRESULT QueryInterface(const IID& iid, void** object) = 0;
    virtual std::uint32_t AddRef() = 0;
    virtual std::uint32_t Release() = 0;
};

struct IDispatch : IUnknown {
    virtual HRESULT GetTypeInfoCount(std::uint32_t* count) = 0;
    virtual HRESULT GetTypeInfo(std::uint32_t index, LCID locale, ITypeInfo** info) = 0;
    // The first name is the member's, those behind it are its arguments'; without regard to case.
    virtual HRESULT GetIDsOfNames(const IID& reserved, char16_t** names, std::uint32_t count, LCID locale,
                                  DISPID* ids) = 0;
    virtual HRESULT Invoke(DISPID member, const IID& reserved, LCID locale, std::uint16_t flags,
                           DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* failure,
                           std::uint32_t* badArgument) = 0;
};

struct IEnumVARIANT : IUnknown {
    // The next ones, at most `count`: S_FALSE where fewer are left. `fetched` may be null.
    virtual HRESULT Next(std::uint32_t count, VARIANT* values, std::uint32_t* fetched) = 0;
    virtual HRESULT Skip(std::uint32_t count) = 0;
    virtual HRESULT Reset() = 0;
    virtual HRESULT Clone(IEnumVARIANT** copy) = 0;
};

struct IClassFactory : IUnknown {
    virtual HRESULT CreateInstance(IUnknown* outer, const IID& iid, void** object) = 0;
    virtual HRESULT LockServer(std::int32_t lock) = 0;
};

struct IErrorInfo : IUnknown {
    virtual HRESULT GetGUID(GUID* iid) = 0;
    virtual HRESULT GetSource(BSTR* source) = 0;
    virtual HRESULT GetDescription(BSTR* description) = 0;
    virtual HRESULT GetHelpFile(BSTR* file) = 0;
    virtual HRESULT GetHelpContext(std::uint32_t* context) = 0;
};

struct ISupportErrorInfo : IUnknown {
    virtual HRESULT InterfaceSupportsErrorInfo(const IID& iid) = 0;  // S_OK or S_FALSE
};

// What libqmcls.so exports.
extern "C" {
// The class factory of a class of this library.
HRESULT DllGetClassObject(const CLSID& clsid, const IID& iid, void** object);
HRESULT DllCanUnloadNow();  // S_OK when no object of this library is left, else S_FALSE
// Writes, and removes, one small file below the user's data folder, by which CreateObject finds this library.
HRESULT DllRegisterServer();
HRESULT DllUnregisterServer();

// Makes an object of a registered class, by its name ("QmClass.clQm") or its CLSID as a text ("{...}").
HRESULT CreateObject(const char16_t* className, IDispatch** object);

BSTR SysAllocString(const char16_t* text);                           // null for null
BSTR SysAllocStringLen(const char16_t* text, std::uint32_t length);  // of null: that many NULs
void SysFreeString(BSTR text);
std::uint32_t SysStringLen(BSTR text);  // in UTF-16 units

void VariantInit(VARIANT* value);
HRESULT VariantClear(
    VARIANT* value);  // frees a text or an array, releases an object; leaves what it refers to alone

// Arrays of VARIANTs, the kind that the class server hands out and takes; dimensions count from 1. An element
// is handed out as a copy of its own.
std::uint32_t SafeArrayGetDim(SAFEARRAY* array);
HRESULT SafeArrayGetLBound(SAFEARRAY* array, std::uint32_t dimension, std::int32_t* bound);
HRESULT SafeArrayGetUBound(SAFEARRAY* array, std::uint32_t dimension, std::int32_t* bound);
HRESULT SafeArrayGetElement(SAFEARRAY* array, const std::int32_t* indices, void* element);
HRESULT SafeArrayDestroy(SAFEARRAY* array);

// The error object of this thread's last failed call. Getting it hands it over: S_FALSE where there is none.
HRESULT GetErrorInfo(std::uint32_t reserved, IErrorInfo** info);
HRESULT SetErrorInfo(std::uint32_t reserved, IErrorInfo* info);
}
