#pragma once

#include "platform/com/Automation.h"

// What IDispatch::GetTypeInfo gives, for hosts that look before they call: the layouts of 64-bit automation.

inline constexpr HRESULT TYPE_E_ELEMENTNOTFOUND = AsResult(0x8002802B);
inline constexpr DISPID MEMBERID_NIL = -1;  // names the interface itself

inline constexpr VARTYPE VT_VOID = 24;
inline constexpr VARTYPE VT_PTR = 26;  // only in a TYPEDESC

struct TYPEDESC {
    TYPEDESC* lptdesc;  // of a VT_PTR: what it points at
    VARTYPE vt;
};

inline constexpr std::uint16_t PARAMFLAG_FIN = 1;
inline constexpr std::uint16_t PARAMFLAG_FOUT = 2;
inline constexpr std::uint16_t PARAMFLAG_FOPT = 16;

struct ELEMDESC {
    TYPEDESC tdesc;
    void* pparamdescex;  // null: no default value is told
    std::uint16_t wParamFlags;
};

inline constexpr std::int32_t FUNC_DISPATCH = 4;
inline constexpr std::int32_t CC_STDCALL = 4;

struct FUNCDESC {
    DISPID memid;
    HRESULT* lprgscode;
    ELEMDESC* lprgelemdescParam;
    std::int32_t funckind;
    std::int32_t invkind;  // DISPATCH_METHOD, DISPATCH_PROPERTYGET or DISPATCH_PROPERTYPUT
    std::int32_t callconv;
    std::int16_t cParams;
    std::int16_t cParamsOpt;
    std::int16_t oVft;
    std::int16_t cScodes;
    ELEMDESC elemdescFunc;  // the result
    std::uint16_t wFuncFlags;
};

inline constexpr std::int32_t TKIND_DISPATCH = 4;
inline constexpr std::uint16_t TYPEFLAG_FDISPATCHABLE = 0x1000;

struct TYPEATTR {
    GUID guid;
    LCID lcid;
    std::uint32_t dwReserved;
    DISPID memidConstructor, memidDestructor;
    char16_t* lpstrSchema;
    std::uint32_t cbSizeInstance;
    std::int32_t typekind;
    std::uint16_t cFuncs, cVars, cImplTypes, cbSizeVft, cbAlignment, wTypeFlags, wMajorVerNum, wMinorVerNum;
    TYPEDESC tdescAlias;
    void* idlReserved;
    std::uint16_t wIDLFlags;
};
static_assert(sizeof(TYPEDESC) == 16 && sizeof(ELEMDESC) == 32 && sizeof(FUNCDESC) == 88 &&
              sizeof(TYPEATTR) == 96);

// What is not told gives E_NOTIMPL. What GetTypeAttr and GetFuncDesc give goes back to the release function.
struct ITypeInfo : IUnknown {
    virtual HRESULT GetTypeAttr(TYPEATTR** attributes) = 0;
    virtual HRESULT GetTypeComp(void** compiler) = 0;  // not told
    virtual HRESULT GetFuncDesc(std::uint32_t index, FUNCDESC** function) = 0;
    virtual HRESULT GetVarDesc(std::uint32_t index, void** variable) = 0;  // there are none
    // The member's name and those of its arguments, at most `most`.
    virtual HRESULT GetNames(DISPID member, BSTR* names, std::uint32_t most, std::uint32_t* given) = 0;
    virtual HRESULT GetRefTypeOfImplType(std::uint32_t index, std::uint32_t* type) = 0;  // there are none
    virtual HRESULT GetImplTypeFlags(std::uint32_t index, std::int32_t* flags) = 0;      // there are none
    virtual HRESULT GetIDsOfNames(char16_t** names, std::uint32_t count, DISPID* ids) = 0;
    // On an IDispatch of this interface.
    virtual HRESULT Invoke(void* object, DISPID member, std::uint16_t flags, DISPPARAMS* arguments,
                           VARIANT* result, EXCEPINFO* failure, std::uint32_t* badArgument) = 0;
    // Any of the places may be null. There is no help file.
    virtual HRESULT GetDocumentation(DISPID member, BSTR* name, BSTR* text, std::uint32_t* helpContext,
                                     BSTR* helpFile) = 0;
    virtual HRESULT GetDllEntry(DISPID member, std::int32_t kind, BSTR* library, BSTR* name,
                                std::uint16_t* ordinal) = 0;                             // not told
    virtual HRESULT GetRefTypeInfo(std::uint32_t type, ITypeInfo** info) = 0;            // there are none
    virtual HRESULT AddressOfMember(DISPID member, std::int32_t kind, void** at) = 0;    // not told
    virtual HRESULT CreateInstance(IUnknown* outer, const IID& iid, void** object) = 0;  // not told
    virtual HRESULT GetMops(DISPID member, BSTR* text) = 0;                              // not told
    virtual HRESULT GetContainingTypeLib(void** library, std::uint32_t* index) = 0;      // not told
    virtual void ReleaseTypeAttr(TYPEATTR* attributes) = 0;
    virtual void ReleaseFuncDesc(FUNCDESC* function) = 0;
    virtual void ReleaseVarDesc(void* variable) = 0;
};
