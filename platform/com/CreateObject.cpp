#include <dlfcn.h>

#include "platform/basic/Text.h"
#include "platform/com/ErrorInfo.h"
#include "platform/com/Lifetime.h"
#include "platform/com/Registration.h"

namespace com {
namespace {

using GetClassObject = HRESULT(const CLSID&, const IID&, void**);

[[noreturn]] void Raise(HRESULT result, const std::string& text) {
    throw basic::Error(result, text, "CreateObject");
}

// Stays loaded to the end of the process: its objects and their code may be in use for that long.
GetClassObject& Load(const std::filesystem::path& library) {
    void* loaded = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* entry = loaded == nullptr ? nullptr : dlsym(loaded, "DllGetClassObject");
    if (entry == nullptr) Raise(CO_E_DLLNOTFOUND, dlerror());
    return *reinterpret_cast<GetClassObject*>(entry);
}

HRESULT Create(const std::string& className, IDispatch** object) {
    const auto registration = Find(className);
    if (!registration) Raise(REGDB_E_CLASSNOTREG, "No class " + className + " is registered");
    void* made = nullptr;
    HRESULT outcome = Load(registration->Library)(registration->Clsid, IID_IClassFactory, &made);
    if (FAILED(outcome)) return outcome;
    const Ptr<IClassFactory> factory(static_cast<IClassFactory*>(made));
    made = nullptr;
    outcome = factory->CreateInstance(nullptr, IID_IDispatch, &made);
    *object = static_cast<IDispatch*>(made);
    return outcome;
}

}  // namespace
}  // namespace com

extern "C" HRESULT CreateObject(const char16_t* className, IDispatch** object) {
    if (className == nullptr || object == nullptr) return E_POINTER;
    *object = nullptr;
    return com::Guarded([&] { return com::Create(basic::FromUtf16(className), object); });
}
