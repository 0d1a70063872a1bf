#include "platform/com/TypeInfo.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "platform/com/Bstr.h"
#include "platform/com/ErrorInfo.h"
#include "platform/com/ITypeInfo.h"
#include "platform/com/Lifetime.h"

namespace com {
namespace {

// A function's description with all that it points at; the host holds the first member.
struct Described {
    FUNCDESC function{};
    std::vector<ELEMDESC> arguments;
    std::vector<TYPEDESC> behind;  // what those by reference point at

    explicit Described(const Member& member)
        : arguments(member.Parameters.size()), behind(member.Parameters.size()) {
        for (std::size_t i = 0; i < arguments.size(); ++i)
            Describe(member.Parameters[i], arguments[i], behind[i]);
        function.memid = member.Id;
        function.lprgelemdescParam = arguments.data();
        function.funckind = FUNC_DISPATCH;
        function.invkind = member.Flags;
        function.callconv = CC_STDCALL;
        function.cParams = static_cast<std::int16_t>(arguments.size());
        function.cParamsOpt =
            static_cast<std::int16_t>(std::ranges::count_if(member.Parameters, &Parameter::Optional));
        function.elemdescFunc.tdesc.vt = member.Result == VT_EMPTY ? VT_VOID : member.Result;
    }

  private:
    static void Describe(const Parameter& parameter, ELEMDESC& told, TYPEDESC& behind) {
        told.wParamFlags = PARAMFLAG_FIN;
        if (parameter.Optional) told.wParamFlags |= PARAMFLAG_FOPT;
        told.tdesc.vt = parameter.Type;
        if (!parameter.ByReference) return;
        told.wParamFlags |= PARAMFLAG_FOUT;
        behind.vt = parameter.Type;
        told.tdesc = {&behind, VT_PTR};
    }
};

class TypeInfo final : public ITypeInfo {
  public:
    explicit TypeInfo(const Interface& shown) : shown_(shown) {}

    HRESULT QueryInterface(const IID& iid, void** object) override {
        return Offer<ITypeInfo>(this, iid, IID_ITypeInfo, object);
    }
    std::uint32_t AddRef() override { return references_.Add(); }
    std::uint32_t Release() override { return references_.Drop(this); }

    HRESULT GetTypeAttr(TYPEATTR** attributes) override {
        return Guarded([&] {
            auto told = std::make_unique<TYPEATTR>();
            told->guid = shown_.Id;
            told->memidConstructor = told->memidDestructor = MEMBERID_NIL;
            told->cbSizeInstance = told->cbAlignment = told->cbSizeVft = sizeof(void*);
            told->typekind = TKIND_DISPATCH;
            told->cFuncs = static_cast<std::uint16_t>(shown_.Members.size());
            told->wTypeFlags = TYPEFLAG_FDISPATCHABLE;
            told->wMajorVerNum = 1;
            Required(attributes) = told.release();
        });
    }
    void ReleaseTypeAttr(TYPEATTR* attributes) override { delete attributes; }

    HRESULT GetFuncDesc(std::uint32_t index, FUNCDESC** function) override {
        return Guarded([&] {
            Required(function) = nullptr;
            if (index >= shown_.Members.size()) return TYPE_E_ELEMENTNOTFOUND;
            *function = &(new Described(shown_.Members[index]))->function;
            return S_OK;
        });
    }
    void ReleaseFuncDesc(FUNCDESC* function) override { delete reinterpret_cast<Described*>(function); }

    HRESULT GetNames(DISPID member, BSTR* names, std::uint32_t most, std::uint32_t* given) override {
        return Guarded([&] {
            Required(given) = 0;
            Required(names);
            const Member* found = Find(member);
            if (found == nullptr) return TYPE_E_ELEMENTNOTFOUND;
            if (most > 0) names[(*given)++] = MakeBstr(found->Name);
            // The new value of a property has no name of its own.
            const std::size_t count =
                found->Parameters.size() - (found->Flags == DISPATCH_PROPERTYPUT ? 1 : 0);
            for (std::size_t i = 0; i < count && *given < most; ++i)
                names[(*given)++] = MakeBstr(found->Parameters[i].Name);
            return S_OK;
        });
    }
    HRESULT GetIDsOfNames(char16_t** names, std::uint32_t count, DISPID* ids) override {
        return FindNames(shown_.Members, names, count, ids);
    }
    HRESULT Invoke(void* object, DISPID member, std::uint16_t flags, DISPPARAMS* arguments, VARIANT* result,
                   EXCEPINFO* failure, std::uint32_t* badArgument) override {
        if (object == nullptr) return E_POINTER;
        return static_cast<IDispatch*>(object)->Invoke(member, IID_NULL, 0, flags, arguments, result, failure,
                                                       badArgument);
    }
    HRESULT GetDocumentation(DISPID member, BSTR* name, BSTR* text, std::uint32_t* helpContext,
                             BSTR* helpFile) override {
        return Guarded([&] {
            const Member* found = member == MEMBERID_NIL ? nullptr : Find(member);
            if (member != MEMBERID_NIL && found == nullptr) return TYPE_E_ELEMENTNOTFOUND;
            if (name != nullptr) *name = MakeBstr(found == nullptr ? shown_.Name : found->Name);
            if (text != nullptr) *text = MakeBstr(found == nullptr ? shown_.Help : found->Help);
            if (helpContext != nullptr) *helpContext = 0;
            if (helpFile != nullptr) *helpFile = nullptr;
            return S_OK;
        });
    }

    HRESULT GetTypeComp(void**) override { return E_NOTIMPL; }
    HRESULT GetVarDesc(std::uint32_t, void**) override { return TYPE_E_ELEMENTNOTFOUND; }
    void ReleaseVarDesc(void*) override {}
    HRESULT GetRefTypeOfImplType(std::uint32_t, std::uint32_t*) override { return TYPE_E_ELEMENTNOTFOUND; }
    HRESULT GetImplTypeFlags(std::uint32_t, std::int32_t*) override { return TYPE_E_ELEMENTNOTFOUND; }
    HRESULT GetRefTypeInfo(std::uint32_t, ITypeInfo**) override { return TYPE_E_ELEMENTNOTFOUND; }
    HRESULT GetDllEntry(DISPID, std::int32_t, BSTR*, BSTR*, std::uint16_t*) override { return E_NOTIMPL; }
    HRESULT AddressOfMember(DISPID, std::int32_t, void**) override { return E_NOTIMPL; }
    HRESULT CreateInstance(IUnknown*, const IID&, void**) override { return E_NOTIMPL; }
    HRESULT GetMops(DISPID, BSTR*) override { return E_NOTIMPL; }
    HRESULT GetContainingTypeLib(void**, std::uint32_t*) override { return E_NOTIMPL; }

  private:
    // A property's get stands before its let, and names its arguments.
    const Member* Find(DISPID id) const {
        const auto found = std::ranges::find(shown_.Members, id, &Member::Id);
        return found == shown_.Members.end() ? nullptr : &*found;
    }

    const Interface& shown_;
    References references_;
    InUse inUse_;
};

}  // namespace

HRESULT GiveTypeInfo(const Interface& shown, ITypeInfo** info) noexcept {
    return Guarded([&] { *info = new TypeInfo(shown); });
}

}  // namespace com
