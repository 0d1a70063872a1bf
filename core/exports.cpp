#include "core/clQmObject.h"
#include "platform/com/ClassFactory.h"
#include "platform/com/ErrorInfo.h"
#include "platform/com/Registration.h"

namespace {

constexpr const char* ProgId = "QmClass.clQm";

IUnknown* NewClQm() {
    return static_cast<_clQm*>(new qm::clQmObject);
}

}  // namespace

extern "C" {

HRESULT DllGetClassObject(const CLSID& clsid, const IID& iid, void** object) {
    if (clsid == CLSID_clQm) return com::GiveFactory(NewClQm, iid, object);
    if (object != nullptr) *object = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT DllRegisterServer() {
    return com::Guarded([] { com::Write({ProgId, CLSID_clQm, com::ThisLibrary()}); });
}

HRESULT DllUnregisterServer() {
    return com::Guarded([] { com::Remove(ProgId); });
}

}  // extern "C"
