#include "platform/com/ClassFactory.h"

#include "platform/com/ErrorInfo.h"
#include "platform/com/Lifetime.h"

namespace com {
namespace {

class ClassFactory final : public IClassFactory {
  public:
    explicit ClassFactory(Maker maker) : maker_(maker) {}

    HRESULT QueryInterface(const IID& iid, void** object) override {
        return Offer<IClassFactory>(this, iid, IID_IClassFactory, object);
    }
    std::uint32_t AddRef() override { return references_.Add(); }
    std::uint32_t Release() override { return references_.Drop(this); }

    HRESULT CreateInstance(IUnknown* outer, const IID& iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        return Guarded([&] { return Ptr<IUnknown>(maker_())->QueryInterface(iid, object); });
    }
    HRESULT LockServer(std::int32_t lock) override {
        if (lock != 0)
            InUse::Lock();
        else
            InUse::Unlock();
        return S_OK;
    }

  private:
    Maker maker_;
    References references_;
    InUse inUse_;
};

}  // namespace

HRESULT GiveFactory(Maker maker, const IID& iid, void** object) noexcept {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    return Guarded([&] { return Ptr<ClassFactory>(new ClassFactory(maker))->QueryInterface(iid, object); });
}

}  // namespace com

extern "C" HRESULT DllCanUnloadNow() {
    return com::InUse::Any() ? S_FALSE : S_OK;
}
