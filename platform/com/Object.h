#pragma once

#include "platform/com/Dispatch.h"
#include "platform/com/Lifetime.h"
#include "platform/com/TypeInfo.h"

namespace com {

// An object that hosts hold: its references, its interfaces, its late binding and its type information.
// `Face` is its interface, IDispatch or one that goes on from it; `Bound` is the class that the members of
// what it shows are bound to. Made with one reference.
template <class Face, class Bound>
class Object : public Face, public ISupportErrorInfo {
  public:
    explicit Object(const Interface& shown) : shown_(shown) {}
    virtual ~Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    HRESULT QueryInterface(const IID& iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (iid == IID_IUnknown || IsFace(iid))
            *object = static_cast<Face*>(this);
        else if (iid == IID_ISupportErrorInfo)
            *object = static_cast<ISupportErrorInfo*>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    std::uint32_t AddRef() override { return references_.Add(); }
    std::uint32_t Release() override { return references_.Drop(this); }

    HRESULT GetTypeInfoCount(std::uint32_t* count) override {
        if (count == nullptr) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT GetTypeInfo(std::uint32_t index, LCID, ITypeInfo** info) override {
        if (info == nullptr) return E_POINTER;
        *info = nullptr;
        return index == 0 ? GiveTypeInfo(shown_, info) : DISP_E_BADINDEX;
    }
    HRESULT GetIDsOfNames(const IID& reserved, char16_t** names, std::uint32_t count, LCID,
                          DISPID* ids) override {
        return reserved == IID_NULL ? FindNames(shown_.Members, names, count, ids) : DISP_E_UNKNOWNINTERFACE;
    }
    HRESULT Invoke(DISPID member, const IID& reserved, LCID locale, std::uint16_t flags,
                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* failure,
                   std::uint32_t* badArgument) override {
        const Ptr<Face> kept = Keep();  // a call may release the last reference of its own object
        return com::Invoke(shown_.Members, static_cast<Bound*>(this),
                           {member, reserved, locale, flags, arguments, result, failure, badArgument});
    }

    HRESULT InterfaceSupportsErrorInfo(const IID& iid) override { return IsFace(iid) ? S_OK : S_FALSE; }

  private:
    bool IsFace(const IID& iid) const { return iid == shown_.Id || iid == IID_IDispatch; }
    Ptr<Face> Keep() {
        AddRef();
        return Ptr<Face>(this);
    }

    const Interface& shown_;  // for the whole run
    References references_;
    InUse inUse_;
};

}  // namespace com
